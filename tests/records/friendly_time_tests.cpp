#include "records/friendly_time.hpp"

#include <gmock/gmock.h>

#include <limits>
#include <vector>

#include "support/fakes.hpp"

namespace vellix::test {
namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3600;
constexpr double kDay = 86'400;

// English words in UTC; the real ones come from the user's locale and time zone.
struct UtcCalendar : FakeCalendar {
  UtcCalendar() { to24 = true; }
};

// Wednesday, 15 November 2023, 15:00 UTC.
constexpr double kNow = 1'700'060'400;

std::string after(double seconds, double now = kNow) {
  return friendlyTime(momentOf((now - seconds) * 1000), momentOf(now * 1000), UtcCalendar{});
}

struct TimeCase {
  double seconds;
  std::string text;
};

TEST(FriendlyTime, ReadsByItsTable) {
  const std::vector<TimeCase> cases = {
      {0, "just now"},
      {49, "just now"},
      {49.999, "just now"},
      {50, "0 min ago"},
      {59, "0 min ago"},
      {59.999, "0 min ago"},
      {60, "1 min ago"},
      {119, "1 min ago"},
      {120, "2 min ago"},
      {3599, "59 min ago"},
      {3599.999, "59 min ago"},
      {3600, "1 hr ago"},
      {7199, "1 hr ago"},
      {7200, "2 hr ago"},
      {15 * kHour, "15 hr ago"},
      {15 * kHour + 1, "Yesterday 23:59"},
      {kDay, "Yesterday 15:00"},
      {39 * kHour, "Yesterday 00:00"},
      {39 * kHour + 1, "Monday 23:59"},
      {3 * kDay, "Sunday 15:00"},
      {6 * kDay - 0.5, "Thursday 15:00"},
      {6 * kDay, "Nov 9"},
      {6 * kDay + 1, "Nov 9"},
      {7 * kDay, "Nov 8"},
      {15 * kDay, "Oct 31"},
      {365 * kDay, "Nov 15"},
  };
  for (const auto& each : cases) EXPECT_EQ(after(each.seconds), each.text) << each.seconds;
}

TEST(FriendlyTime, OfAFutureDateIsJustNow) {
  for (const double seconds : {-0.001, -1.0, -kHour, -kDay, -400 * kDay}) {
    EXPECT_EQ(after(seconds), "just now") << seconds;
  }
}

TEST(FriendlyTime, CountsMinutesAcrossMidnight) {
  constexpr double fiveToMidnight = 1'700'006'100;  // 14 November, 23:55
  constexpr double tenPast = fiveToMidnight + 15 * kMinute;
  EXPECT_EQ(after(15 * kMinute, tenPast), "15 min ago");
  EXPECT_EQ(after(kHour, tenPast), "Yesterday 23:10");
  EXPECT_EQ(after(23 * kHour, fiveToMidnight), "23 hr ago");
}

TEST(FriendlyTime, TellsYesterdayByTheCalendarAndNotByTheHours) {
  constexpr double lastMinute = 1'700'006'340;  // 14 November, 23:59
  EXPECT_EQ(after(47 * kHour, lastMinute), "Yesterday 00:59");
  EXPECT_EQ(after(48 * kHour, lastMinute), "Sunday 23:59");
}

// A calendar whose days lie at the ends of what it can count.
class EdgeCalendar : public UtcCalendar {
 public:
  int dayOf(Moment moment) const override {
    return wireOf(moment) < 0 ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  std::string monthAndDay(Moment) const override { return "long ago"; }
};

TEST(FriendlyTime, TakesAnyMomentThatAnAnswerMayHold) {
  EXPECT_EQ(friendlyTime(momentOf(-1e308), momentOf(kNow * 1000), EdgeCalendar{}), "long ago");
  EXPECT_EQ(friendlyTime(momentOf(1e308), momentOf(kNow * 1000), EdgeCalendar{}), "just now");
}

}  // namespace
}  // namespace vellix::test
