// Pictures through Qt's image readers.
#pragma once

#include "pictures/PixelCache.hpp"
#include "platform/ports/pictures.hpp"

namespace vellix {

// Takes JPEG, PNG and WebP, told by their bytes. Main thread. The cache must outlive it.
class QtPictureDecoder : public PictureDecoder {
 public:
  explicit QtPictureDecoder(PixelCache& cache) : cache_(cache) {}

  std::optional<Picture> inspect(Picture encoded) const override;
  Pending<PictureHandle> decode(Picture encoded) override;

 private:
  PixelCache& cache_;
};

}  // namespace vellix
