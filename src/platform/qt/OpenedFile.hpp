// A file on the disk, read to its end as it was when it was opened.
#pragma once

#include <memory>
#include <string>

#include "platform/ports/http.hpp"

namespace vellix {

// Nothing is given out that was read after the file had been written to, cut or touched, or after
// another one had come to its place or none was left there.
class OpenedFile : public HttpBody {
 public:
  // What tells one state of one file from any other.
  struct State {
    std::uint64_t device;
    std::uint64_t number;
    std::int64_t size;     // bytes
    std::int64_t written;  // nanoseconds since 1970
    std::int64_t touched;  // the same, also when only what is told of it was changed
    bool operator==(const State&) const = default;
  };

  // Null for what cannot be read or is no file. May wait for the disk.
  static std::shared_ptr<HttpBody> open(const std::string& path);

  // Closes the file in the end.
  OpenedFile(int file, std::string path, const State& then);
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;
  ~OpenedFile() override;

  std::int64_t size() const override { return then_.size; }
  std::optional<std::size_t> read(char* to, std::size_t most) override;

 private:
  bool isAsItWas() const;

  const int file_;
  const std::string path_;
  const State then_;
  std::int64_t taken_ = 0;
};

}  // namespace vellix
