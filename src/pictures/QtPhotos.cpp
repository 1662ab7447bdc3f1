#include "pictures/QtPhotos.hpp"

#include <QByteArray>
#include <utility>

#include "pictures/PhotoMaking.hpp"
#include "platform/qt/OpenedFile.hpp"

namespace vellix {
namespace {

PhotoResult photoOf(const std::string& path, DecodingBudget& budget) {
  const auto file = OpenedFile::open(path);
  if (!file) return std::unexpected(PhotoFailure::notLoaded);
  if (file->size() > kMostPhoto) return std::unexpected(PhotoFailure::notMade);
  QByteArray bytes(static_cast<qsizetype>(file->size()), Qt::Uninitialized);
  if (!file->read(bytes.data(), static_cast<std::size_t>(bytes.size()))) {
    return std::unexpected(PhotoFailure::notLoaded);
  }
  return makePhoto(bytes, budget);
}

}  // namespace

Pending<PhotoResult> QtPhotos::make(std::string path) {
  return errands_.run<PhotoResult>(
      [path = std::move(path), budget = budget_] { return photoOf(path, *budget); },
      std::unexpected(PhotoFailure::notMade));
}

}  // namespace vellix
