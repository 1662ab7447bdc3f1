#include "pictures/QtPictureDecoder.hpp"

#include <utility>

#include "pictures/PictureReading.hpp"

namespace vellix {

std::optional<Picture> QtPictureDecoder::inspect(Picture encoded) const {
  const auto size = pictureSize(encoded);
  if (!size) return std::nullopt;
  encoded.width = size->width();
  encoded.height = size->height();
  if (!encoded.file.empty()) encoded.bytes.clear();
  return encoded;
}

Pending<PictureHandle> QtPictureDecoder::decode(Picture encoded) {
  const Resolver<PictureHandle> resolver;
  // What is held was looked into when it was found: reading its head once more takes long.
  const bool held = encoded.width > 0 && encoded.height > 0;
  auto known = held ? std::optional{std::move(encoded)} : inspect(std::move(encoded));
  // Without a size there is nothing to decode; the answer still comes in a later turn.
  const auto picture = std::make_shared<const Picture>(known ? *std::move(known) : Picture{});
  cache_.decodeWhole(picture, [resolver, picture](const Pixels& pixels) {
    resolver(pixels.isNull() ? nullptr : picture);
  });
  return resolver.pending();
}

}  // namespace vellix
