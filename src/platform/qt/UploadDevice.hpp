// The body of one request, given out once.
#pragma once

#include <QIODevice>
#include <functional>
#include <memory>

#include "platform/ports/http.hpp"

namespace vellix {

// It is sequential and cannot be wound back, on purpose: a body that can be read again is silently
// sent again when the connection closes.
class UploadDevice : public QIODevice {
 public:
  // Both are called on the reading thread: `progress` whenever bytes are taken, `failed` once when
  // the rest is not to be had.
  UploadDevice(std::shared_ptr<HttpBody> body, std::function<void()> progress,
               std::function<void()> failed);

  bool isSequential() const override { return true; }
  bool seek(qint64) override { return false; }
  bool reset() override { return false; }
  bool begun() const { return taken_ > 0; }
  bool atEnd() const override { return taken_ == size_; }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  const std::shared_ptr<HttpBody> body_;
  const qint64 size_;
  qint64 taken_ = 0;
  bool broken_ = false;
  std::function<void()> progress_;
  std::function<void()> failed_;
};

}  // namespace vellix
