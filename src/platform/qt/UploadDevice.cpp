#include "platform/qt/UploadDevice.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vellix {

UploadDevice::UploadDevice(std::string bytes, std::function<void()> progress)
    : bytes_(std::move(bytes)), progress_(std::move(progress)) {
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 UploadDevice::bytesAvailable() const {
  return static_cast<qint64>(bytes_.size() - taken_) + QIODevice::bytesAvailable();
}

qint64 UploadDevice::readData(char* data, qint64 most) {
  if (atEnd()) return -1;
  const auto count = std::min(static_cast<std::size_t>(most), bytes_.size() - taken_);
  std::memcpy(data, bytes_.data() + taken_, count);
  taken_ += count;
  if (count > 0) progress_();
  return static_cast<qint64>(count);
}

}  // namespace vellix
