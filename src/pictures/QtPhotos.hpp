// Photos of persons, made through Qt's image readers.
#pragma once

#include <cstdint>
#include <memory>

#include "pictures/DecodingBudget.hpp"
#include "platform/ports/photos.hpp"
#include "platform/qt/Errands.hpp"

namespace vellix {

// Bytes of a file: one of 100 million pixels, as cameras write it, has half of them.
inline constexpr std::int64_t kMostPhoto = std::int64_t{64} << 20;

// Made, used and ended on the main thread, while the QCoreApplication lives. What is still being
// made at the end never resolves.
class QtPhotos : public Photos {
 public:
  Pending<PhotoResult> make(std::string path) override;

 private:
  // Shared with what is left behind.
  std::shared_ptr<DecodingBudget> budget_ = std::make_shared<DecodingBudget>(kMostDecoding);
  Errands errands_;
};

}  // namespace vellix
