// The body of one request, given out once.
#pragma once

#include <QIODevice>
#include <functional>
#include <string>

namespace vellix {

// It is sequential and cannot be wound back, on purpose: a body that can be read again is silently
// sent again when the connection closes.
class UploadDevice : public QIODevice {
 public:
  // `progress` is called on the reading thread whenever bytes are taken.
  UploadDevice(std::string bytes, std::function<void()> progress);

  bool isSequential() const override { return true; }
  bool seek(qint64) override { return false; }
  bool reset() override { return false; }
  bool begun() const { return taken_ > 0; }
  bool atEnd() const override { return taken_ == bytes_.size(); }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  std::string bytes_;
  std::size_t taken_ = 0;
  std::function<void()> progress_;
};

}  // namespace vellix
