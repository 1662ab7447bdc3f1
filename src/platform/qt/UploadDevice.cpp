#include "platform/qt/UploadDevice.hpp"

#include <algorithm>
#include <utility>

namespace vellix {

UploadDevice::UploadDevice(std::shared_ptr<HttpBody> body, std::function<void()> progress,
                           std::function<void()> failed)
    : body_(std::move(body)),
      size_(body_->size()),
      progress_(std::move(progress)),
      failed_(std::move(failed)) {
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 UploadDevice::bytesAvailable() const { return size_ - taken_ + QIODevice::bytesAvailable(); }

qint64 UploadDevice::readData(char* data, qint64 most) {
  if (broken_ || atEnd()) return -1;
  const auto wanted = static_cast<std::size_t>(std::min(most, size_ - taken_));
  if (wanted == 0) return 0;
  const auto count = body_->read(data, wanted);
  if (!count || *count == 0) {
    broken_ = true;
    failed_();
    return -1;
  }
  taken_ += static_cast<qint64>(*count);
  progress_();
  return static_cast<qint64>(*count);
}

}  // namespace vellix
