#include "past.hpp"

#include <array>

#include "catalog.hpp"
#include "clock.hpp"

namespace vellix::demo {
namespace {

constexpr double kWindow = 48 * kHour;

// At eleven in the morning, so many days before; it had come in so many hours earlier.
PastReview review(double opened, int days, int hours, int nth = 0) {
  const double at = atLocal(opened, -days, 11, 20 * nth);
  const double received = at - hours * kHour;
  return {received, at, received + kWindow};
}

}  // namespace

// Each is one short of something: with what is on the board Renny has reviewed nine, caught 24
// issues and written 24 notes, and Jorvas has reviewed 99.
Past pastOf(const std::string& email, double opened) {
  Past past;
  if (email == kRenny) {
    constexpr std::array<std::pair<int, int>, 7> all = {
        {{6, 9}, {9, 20}, {13, 61}, {20, 31}, {27, 7}, {34, 44}, {41, 15}}};
    for (const auto& [days, hours] : all) past.reviews.push_back(review(opened, days, hours));
    past.issues = {{"words", 9}, {"breaks", 5}, {"fonts", 3}, {"picture", 4}};
    past.fine = 6;
    past.notes = 19;
  } else if (email == kJorvas) {
    // How many on each day, backwards from yesterday; eleven days in a row.
    constexpr std::array<int, 35> rhythm = {2, 1, 3, 1, 2, 1, 1, 4, 2, 3, 1, 0, 0, 2, 5, 3, 1, 2,
                                            0, 0, 1, 2, 2, 1, 0, 0, 0, 3, 4, 2, 3, 1, 0, 0, 2};
    int made = 0;
    for (int day = 1; made < 98; ++day) {
      const int count = rhythm.at(static_cast<std::size_t>(day - 1) % rhythm.size());
      for (int nth = 0; nth < count && made < 98; ++nth, ++made) {
        past.reviews.push_back(review(opened, day, made % 14 == 9 ? 57 : 4 + made * 7 % 41, nth));
      }
    }
    past.issues = {{"words", 41}, {"breaks", 18}, {"fonts", 9}, {"picture", 14},
                   {"hidden", 4}, {"barcode", 3}, {"spots", 5}, {"missing_page", 2}};
    past.fine = 57;
    past.notes = 46;
  }
  return past;
}

}  // namespace vellix::demo
