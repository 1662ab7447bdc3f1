#include "pictures/DecodingBudget.hpp"

namespace vellix {

std::int64_t DecodingBudget::taken() {
  const std::lock_guard lock(mutex_);
  return taken_;
}

DecodingBudget::Share::Share(DecodingBudget& budget, std::int64_t bytes)
    : budget_(budget), bytes_(bytes) {
  std::unique_lock lock(budget_.mutex_);
  budget_.given_.wait(lock, [this] { return budget_.taken_ + bytes_ <= budget_.bytes_; });
  budget_.taken_ += bytes_;
}

DecodingBudget::Share::~Share() {
  {
    const std::lock_guard lock(budget_.mutex_);
    budget_.taken_ -= bytes_;
  }
  budget_.given_.notify_all();
}

}  // namespace vellix
