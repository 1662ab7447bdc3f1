#include "pictures/QtPhotos.hpp"

#include <QByteArray>
#include <optional>
#include <utility>

#include "pictures/PhotoMaking.hpp"
#include "platform/qt/OpenedFile.hpp"

namespace vellix {
namespace {

std::optional<QByteArray> bytesAt(const std::string& path) {
  const auto file = OpenedFile::open(path);
  if (!file || file->size() > kMostPhoto) return std::nullopt;
  QByteArray bytes(static_cast<qsizetype>(file->size()), Qt::Uninitialized);
  if (!file->read(bytes.data(), static_cast<std::size_t>(bytes.size()))) return std::nullopt;
  return bytes;
}

PhotoResult photoOf(const std::string& path, DecodingBudget& budget) {
  const auto bytes = bytesAt(path);
  return bytes ? makePhoto(*bytes, budget) : std::unexpected(PhotoFailure::notLoaded);
}

}  // namespace

Pending<PhotoResult> QtPhotos::make(std::string path) {
  return errands_.run<PhotoResult>(
      [path = std::move(path), budget = budget_] { return photoOf(path, *budget); },
      std::unexpected(PhotoFailure::notLoaded));
}

}  // namespace vellix
