#include "platform/qt/QtCalendar.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vellix {
namespace {

QtCalendar in(const char* zone, const char* locale = "en_US") {
  return QtCalendar(QLocale(locale), QTimeZone(zone));
}

Moment utc(int year, int month, int day, int hour, int minute, int second = 0, int ms = 0) {
  const QDateTime moment(QDate(year, month, day), QTime(hour, minute, second, ms), Qt::UTC);
  return momentOf(static_cast<double>(moment.toMSecsSinceEpoch()));
}

int dayNumber(int year, int month, int day) {
  return static_cast<int>(QDate(1970, 1, 1).daysTo(QDate(year, month, day)));
}

TEST(QtCalendar, TheDayTurnsAtLocalMidnight) {
  struct Row {
    const char* zone;
    Moment last;  // millisecond before midnight
  };
  const Row rows[] = {
      {"UTC", utc(2026, 3, 10, 23, 59, 59, 999)},
      {"America/New_York", utc(2026, 3, 11, 3, 59, 59, 999)},
      {"Asia/Kolkata", utc(2026, 3, 10, 18, 29, 59, 999)},
      {"Pacific/Auckland", utc(2026, 3, 10, 10, 59, 59, 999)},
  };
  for (const auto& row : rows) {
    const auto calendar = in(row.zone);
    EXPECT_EQ(calendar.dayOf(row.last), dayNumber(2026, 3, 10)) << row.zone;
    EXPECT_EQ(calendar.dayOf(row.last + Milliseconds(0.5)), dayNumber(2026, 3, 10)) << row.zone;
    EXPECT_EQ(calendar.dayOf(row.last + Milliseconds(1)), dayNumber(2026, 3, 11)) << row.zone;
    EXPECT_EQ(calendar.shortTime(row.last + Milliseconds(1)), "12:00 AM") << row.zone;
    EXPECT_EQ(calendar.weekday(row.last), "Tuesday") << row.zone;
    EXPECT_EQ(calendar.shortWeekday(row.last + Milliseconds(1)), "Wed") << row.zone;
  }
}

TEST(QtCalendar, DaysStayWholeWhenTheClocksChange) {
  const auto calendar = in("Europe/Berlin");
  // 29 March 2026 has 23 hours there, 25 October 25.
  EXPECT_EQ(calendar.dayOf(utc(2026, 3, 28, 22, 59)), dayNumber(2026, 3, 28));
  EXPECT_EQ(calendar.dayOf(utc(2026, 3, 28, 23, 0)), dayNumber(2026, 3, 29));
  EXPECT_EQ(calendar.dayOf(utc(2026, 3, 29, 21, 59)), dayNumber(2026, 3, 29));
  EXPECT_EQ(calendar.dayOf(utc(2026, 3, 29, 22, 0)), dayNumber(2026, 3, 30));
  EXPECT_EQ(calendar.dayOf(utc(2026, 10, 24, 22, 0)), dayNumber(2026, 10, 25));
  EXPECT_EQ(calendar.dayOf(utc(2026, 10, 25, 22, 59)), dayNumber(2026, 10, 25));
  EXPECT_EQ(calendar.dayOf(utc(2026, 10, 25, 23, 0)), dayNumber(2026, 10, 26));
  EXPECT_EQ(calendar.shortTime(utc(2026, 3, 29, 0, 59)), "1:59 AM");
  EXPECT_EQ(calendar.shortTime(utc(2026, 3, 29, 1, 0)), "3:00 AM");
}

TEST(QtCalendar, SpeaksTheLocale) {
  const Moment moment = utc(2026, 11, 18, 14, 30);
  EXPECT_EQ(in("UTC").monthAndDay(moment), "Nov 18");
  EXPECT_EQ(in("UTC").shortTime(moment), "2:30 PM");
  EXPECT_EQ(in("UTC", "en_GB").monthAndDay(moment), "18 Nov");
  EXPECT_EQ(in("UTC", "de_DE").shortTime(moment), "14:30");
  EXPECT_EQ(in("UTC", "de_DE").weekday(moment), "Mittwoch");
}

TEST(QtCalendar, TellsTheDateWithItsYear) {
  const Moment moment = utc(2026, 11, 18, 23, 30);
  EXPECT_EQ(in("UTC").dateAndTime(moment), "Nov 18, 2026, 11:30 PM");
  EXPECT_EQ(in("Asia/Kolkata").dateAndTime(moment), "Nov 19, 2026, 5:00 AM");
  EXPECT_EQ(in("America/New_York").dateAndTime(moment), "Nov 18, 2026, 6:30 PM");
  EXPECT_EQ(in("UTC", "en_GB").dateAndTime(moment), "18 Nov 2026, 23:30");
}

TEST(QtCalendar, NamesTheHalvesOfTheDayWhereThereAreAny) {
  EXPECT_EQ(in("UTC").halfOfDay(false), "AM");
  EXPECT_EQ(in("UTC").halfOfDay(true), "PM");
  EXPECT_EQ(in("UTC", "de_DE").halfOfDay(true), "");
  EXPECT_EQ(in("UTC", "en_GB").halfOfDay(false), "");
  EXPECT_FALSE(in("UTC", "ko_KR").halfOfDay(true).empty());
}

TEST(QtCalendar, ReadsTheClockOnTheWallAndBack) {
  const Moment moment = utc(2026, 7, 1, 22, 45, 30);
  struct Row {
    const char* zone;
    WallTime wall;
  };
  for (const Row& row : {Row{"UTC", {dayNumber(2026, 7, 1), 22, 45}},
                         {"America/New_York", {dayNumber(2026, 7, 1), 18, 45}},
                         {"Asia/Kolkata", {dayNumber(2026, 7, 2), 4, 15}},
                         {"Asia/Kathmandu", {dayNumber(2026, 7, 2), 4, 30}},
                         {"Pacific/Auckland", {dayNumber(2026, 7, 2), 10, 45}}}) {
    const auto calendar = in(row.zone);
    EXPECT_EQ(calendar.wallTime(moment), row.wall) << row.zone;
    EXPECT_EQ(calendar.momentAt(row.wall), utc(2026, 7, 1, 22, 45)) << row.zone;
  }
}

TEST(QtCalendar, GoesOnWhereTheClocksJump) {
  const auto calendar = in("Europe/Berlin");
  const int spring = dayNumber(2026, 3, 29);
  EXPECT_EQ(calendar.momentAt({spring, 1, 59}), utc(2026, 3, 29, 0, 59));
  EXPECT_EQ(calendar.momentAt({spring, 2, 30}), utc(2026, 3, 29, 1, 30)) << "at half past three";
  EXPECT_EQ(calendar.momentAt({spring, 3, 0}), utc(2026, 3, 29, 1, 0));
  const int autumn = dayNumber(2026, 10, 25);
  EXPECT_EQ(calendar.momentAt({autumn, 2, 30}), utc(2026, 10, 25, 0, 30)) << "the first of two";
  EXPECT_EQ(calendar.momentAt({autumn, 3, 0}), utc(2026, 10, 25, 2, 0));
  EXPECT_EQ(calendar.wallTime(utc(2026, 10, 25, 0, 30)),
            calendar.wallTime(utc(2026, 10, 25, 1, 30)));
  // Where midnight itself is jumped over.
  const auto beirut = in("Asia/Beirut");
  EXPECT_EQ(beirut.wallTime(beirut.momentAt({dayNumber(2026, 3, 29), 0, 30})),
            (WallTime{dayNumber(2026, 3, 29), 1, 30}));
}

TEST(QtCalendar, DaysBeforeTheEpochAreNegative) {
  EXPECT_EQ(in("UTC").dayOf(momentOf(-1)), -1);
  EXPECT_EQ(in("UTC").dayOf(momentOf(0)), 0);
}

TEST(QtCalendar, ImpossibleMomentsDoNoHarm) {
  const auto calendar = in("America/New_York");
  for (const double wire : {1e300, -1e300, std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN()}) {
    calendar.dayOf(momentOf(wire));
    EXPECT_FALSE(calendar.weekday(momentOf(wire)).empty()) << wire;
    EXPECT_FALSE(calendar.monthAndDay(momentOf(wire)).empty()) << wire;
    EXPECT_FALSE(calendar.dateAndTime(momentOf(wire)).empty()) << wire;
    calendar.momentAt(calendar.wallTime(momentOf(wire)));
  }
}

TEST(QtCalendar, FollowsTheSystemsZoneWhenGivenNone) {
  const QtCalendar calendar{QLocale("en_US")};
  const Moment moment = utc(2026, 7, 1, 12, 0);
  const QDate here = QDateTime::fromMSecsSinceEpoch(qint64(wireOf(moment))).date();
  EXPECT_EQ(calendar.dayOf(moment), QDate(1970, 1, 1).daysTo(here));
}

}  // namespace
}  // namespace vellix
