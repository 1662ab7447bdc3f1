#include "platform/qt/QtLocalFiles.hpp"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/qt/OpenedFile.hpp"

namespace vellix {

struct QtLocalFiles::Desk {
  std::mutex mutex;
  QObject* context;  // none once the main thread has gone
};

QtLocalFiles::QtLocalFiles() : desk_(std::make_shared<Desk>()) { desk_->context = &context_; }

QtLocalFiles::~QtLocalFiles() {
  const std::scoped_lock lock(desk_->mutex);
  desk_->context = nullptr;
}

Pending<std::shared_ptr<HttpBody>> QtLocalFiles::open(std::string path) {
  const auto id = ++lastId_;
  const auto pending = opening_[id].pending();
  const auto hand = [this, id, desk = desk_](const File& file) {
    const auto deliver = [this, id, file] { finish(id, file); };
    const std::scoped_lock lock(desk->mutex);
    if (desk->context) QMetaObject::invokeMethod(desk->context, deliver, Qt::QueuedConnection);
  };
  try {
    std::thread([hand, path = std::move(path)] { hand(OpenedFile::open(path)); }).detach();
  } catch (const std::system_error&) {
    hand(nullptr);
  }
  return pending;
}

void QtLocalFiles::finish(std::uint64_t id, const File& file) {
  const auto found = opening_.find(id);
  const Resolver<File> resolver = found->second;
  opening_.erase(found);
  resolver(file);
}

}  // namespace vellix
