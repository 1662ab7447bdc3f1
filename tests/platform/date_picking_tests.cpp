// A date and a time of day, picked where clocks change and days turn elsewhere.
#include <gtest/gtest.h>

#include "pieces/date_picker.hpp"
#include "platform/qt/QtCalendar.hpp"

namespace vellix {
namespace {

QtCalendar in(const char* zone) { return QtCalendar(QLocale("en_US"), QTimeZone(zone)); }

// What is shown, as it is read.
std::string told(const DatePick& pick, const MomentRange& range, const Calendar& calendar) {
  const auto view = datePicker(pick, range, calendar);
  return view.day + " " + view.hour + ":" + view.minute + " " + view.half;
}

TEST(DatePicking, TurnsTheDayAtLocalMidnight) {
  struct Row {
    const char* zone;
    const char* first;
    const char* next;
  };
  for (const Row& row : {Row{"America/New_York", "Wed, Nov 18 11:45 PM", "Thu, Nov 19 12:00 AM"},
                         {"Asia/Kolkata", "Wed, Nov 18 11:45 PM", "Thu, Nov 19 12:00 AM"},
                         {"Pacific/Auckland", "Wed, Nov 18 11:45 PM", "Thu, Nov 19 12:00 AM"}}) {
    const auto calendar = in(row.zone);
    const int day = static_cast<int>(QDate(1970, 1, 1).daysTo(QDate(2026, 11, 18)));
    const Moment from = calendar.momentAt({day, 23, 40});
    const MomentRange range{from, from + std::chrono::hours{48}};
    const DatePick quarter = stepped({.at = from}, "quarter", 1, range, calendar);
    EXPECT_EQ(told(quarter, range, calendar), row.first) << row.zone;
    const DatePick next = stepped(quarter, "quarter", 1, range, calendar);
    EXPECT_EQ(told(next, range, calendar), row.next) << row.zone;
    EXPECT_EQ(told(stepped(next, "day", 1, range, calendar), range, calendar),
              "Fri, Nov 20 12:00 AM")
        << row.zone;
    EXPECT_EQ(datePicker({.at = from}, range, calendar).lastDay, day + 2) << row.zone;
  }
}

// Through the night of 29 March 2026, in which Berlin has no half past two.
TEST(DatePicking, PassesTheHourThatIsLeftOut) {
  const auto calendar = in("Europe/Berlin");
  const int day = static_cast<int>(QDate(1970, 1, 1).daysTo(QDate(2026, 3, 28)));
  const Moment from = calendar.momentAt({day, 2, 30});
  const MomentRange range{from, from + std::chrono::hours{48}};
  EXPECT_EQ(told({.at = range.latest}, range, calendar), "Mon, Mar 30 3:30 AM")
      << "48 hours are 48 hours";
  DatePick pick{.at = calendar.momentAt({day + 1, 1, 30})};
  pick = stepped(pick, "hour", 1, range, calendar);
  EXPECT_EQ(told(pick, range, calendar), "Sun, Mar 29 3:30 AM");
  pick = stepped(pick, "hour", -1, range, calendar);
  EXPECT_EQ(told(pick, range, calendar), "Sun, Mar 29 1:30 AM") << "and back again";
  pick = stepped({.at = from}, "day", 1, range, calendar);
  EXPECT_EQ(told(pick, range, calendar), "Sun, Mar 29 3:30 AM");
  pick = withNumber({.at = calendar.momentAt({day + 1, 9, 0})}, "hour", 2, range, calendar);
  EXPECT_EQ(told(pick, range, calendar), "Sun, Mar 29 3:00 AM");
}

TEST(DatePicking, PassesTheHourThatComesTwice) {
  const auto calendar = in("America/New_York");
  const int day = static_cast<int>(QDate(1970, 1, 1).daysTo(QDate(2026, 11, 1)));
  const Moment from = calendar.momentAt({day, 0, 30});
  const MomentRange range{from, from + std::chrono::hours{48}};
  DatePick pick{.at = from};
  std::vector<std::string> hours;
  for (int i = 0; i < 3; ++i) {
    pick = stepped(pick, "hour", 1, range, calendar);
    hours.push_back(told(pick, range, calendar));
  }
  EXPECT_EQ(hours, (std::vector<std::string>{"Sun, Nov 1 1:30 AM", "Sun, Nov 1 1:30 AM",
                                             "Sun, Nov 1 2:30 AM"}));
  EXPECT_EQ(told(stepped({.at = from}, "day", 1, range, calendar), range, calendar),
            "Mon, Nov 2 12:30 AM");
}

}  // namespace
}  // namespace vellix
