// The bytes that decoding may take, one budget for all that decode at once.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace vellix {

inline constexpr std::int64_t kMostDecoding = std::int64_t{128} << 20;

// Any thread. What is taken must be given back before the budget ends.
class DecodingBudget {
 public:
  explicit DecodingBudget(std::int64_t bytes) : bytes_(bytes) {}
  DecodingBudget(const DecodingBudget&) = delete;
  DecodingBudget& operator=(const DecodingBudget&) = delete;

  std::int64_t bytes() const { return bytes_; }
  std::int64_t taken();

  // Holds its bytes as long as it lives. Waits until there are as many, so there must be at all.
  class Share {
   public:
    Share(DecodingBudget& budget, std::int64_t bytes);
    ~Share();
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;

   private:
    DecodingBudget& budget_;
    const std::int64_t bytes_;
  };

 private:
  const std::int64_t bytes_;
  std::int64_t taken_ = 0;
  std::mutex mutex_;
  std::condition_variable given_;
};

}  // namespace vellix
