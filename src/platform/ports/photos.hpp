// Makes what a person is seen by out of a picture of theirs.
#pragma once

#include <expected>
#include <string>

#include "platform/ports/pending.hpp"

namespace vellix {

// Pixels, of a photo's width and height.
inline constexpr int kPhotoSide = 512;

enum class PhotoFailure {
  notLoaded,  // no picture, or one that cannot be read
  notMade,    // a picture of which no photo could be made
};
using PhotoResult = std::expected<std::string, PhotoFailure>;

class Photos {
 public:
  virtual ~Photos() = default;
  // The square in the middle of the picture in that file, the right way up, scaled to kPhotoSide as
  // a JPEG's bytes. The path's bytes are the system's own. Callable from the main thread, which
  // never waits; resolves there.
  virtual Pending<PhotoResult> make(std::string path) = 0;
};

}  // namespace vellix
