// Decoding and keeping of pictures, as the picture cache sees them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/pending.hpp"

namespace vellix {

// Bytes of an encoded picture: what has more is not taken, and need not be fetched. A page of 2000
// by 3000 pixels takes 1 to 4 MB, and 18 where nothing of it could be pressed.
inline constexpr std::int64_t kMostEncoded = std::int64_t{32} << 20;

// A picture that is known to decode: its pixel size and its encoded bytes, not its pixels.
// The bytes lie in `file` when the disk took them, else in `bytes`. Immutable and shared.
struct Picture {
  std::string key;  // blob key
  int width = 0;    // pixels
  int height = 0;
  std::string file;   // path; empty when the bytes are held here
  std::string bytes;  // encoded
  bool operator==(const Picture&) const = default;
};
using PictureHandle = std::shared_ptr<const Picture>;

class PictureDecoder {
 public:
  virtual ~PictureDecoder() = default;
  // Reads the size from the picture's header, on the calling thread; none when it is no picture.
  virtual std::optional<Picture> inspect(Picture encoded) const = 0;
  // Decodes the whole picture off the main thread, so a cut or false one is told apart, and keeps
  // the pixels at hand for the views. None when it does not decode.
  virtual Pending<PictureHandle> decode(Picture encoded) = 0;
};

class PictureFiles {
 public:
  virtual ~PictureFiles() = default;
  // Absolute path of a file of this name that is there and can be read; empty otherwise.
  virtual std::string find(const std::string& name) const = 0;
  // Writes whole or not at all; the path, or empty when it could not be written.
  virtual std::string write(const std::string& name, const std::string& bytes) = 0;
};

}  // namespace vellix
