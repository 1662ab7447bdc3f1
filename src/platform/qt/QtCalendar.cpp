#include "platform/qt/QtCalendar.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

// Times come from outside: what lies past some 100,000 years is held at that.
constexpr double kFarthest = 3.2e15;

}  // namespace

QLocale userLocale() {
  const QLocale system = QLocale::system();
  return system.language() == QLocale::C ? QLocale{QLocale::English, QLocale::UnitedStates}
                                         : system;
}

QtCalendar::QtCalendar(const QLocale& locale, const std::optional<QTimeZone>& zone)
    : locale_(locale), zone_(zone) {}

QDateTime QtCalendar::local(Moment moment) const {
  const double wire = wireOf(moment);
  const double held = std::isnan(wire) ? 0 : std::clamp(wire, -kFarthest, kFarthest);
  const auto milliseconds = static_cast<qint64>(std::floor(held));
  return zone_ ? QDateTime::fromMSecsSinceEpoch(milliseconds, *zone_)
               : QDateTime::fromMSecsSinceEpoch(milliseconds);
}

int QtCalendar::dayOf(Moment moment) const {
  return static_cast<int>(QDate(1970, 1, 1).daysTo(local(moment).date()));
}

std::string QtCalendar::shortTime(Moment moment) const {
  return locale_.toString(local(moment).time(), QLocale::ShortFormat).toStdString();
}

std::string QtCalendar::weekday(Moment moment) const {
  return locale_.dayName(local(moment).date().dayOfWeek(), QLocale::LongFormat).toStdString();
}

std::string QtCalendar::shortWeekday(Moment moment) const {
  return locale_.dayName(local(moment).date().dayOfWeek(), QLocale::ShortFormat).toStdString();
}

bool QtCalendar::dayBeforeMonth() const {
  const QString order = locale_.dateFormat(QLocale::ShortFormat);
  return order.indexOf(u'd') < order.indexOf(u'M');
}

std::string QtCalendar::monthAndDay(Moment moment) const {
  return locale_.toString(local(moment).date(), dayBeforeMonth() ? "d MMM" : "MMM d").toStdString();
}

std::string QtCalendar::dateAndTime(Moment moment) const {
  const auto* form = dayBeforeMonth() ? "d MMM yyyy" : "MMM d, yyyy";
  return locale_.toString(local(moment).date(), form).toStdString() + ", " + shortTime(moment);
}

WallTime QtCalendar::wallTime(Moment moment) const {
  const QTime time = local(moment).time();
  return {.day = dayOf(moment), .hour = time.hour(), .minute = time.minute()};
}

QDateTime QtCalendar::local(const QDate& date, const QTime& time) const {
  return zone_ ? QDateTime(date, time, *zone_) : QDateTime(date, time);
}

Moment QtCalendar::momentAt(const WallTime& wall) const {
  const QDate date = QDate(1970, 1, 1).addDays(wall.day);
  const QTime time(wall.hour, wall.minute);
  const Moment moment = momentOf(static_cast<double>(local(date, time).toMSecsSinceEpoch()));
  // Where it comes twice, Qt takes either. Clocks are put back by an hour, on one island by half.
  for (const int minutes : {60, 30}) {
    const Moment before = moment - std::chrono::minutes{minutes};
    if (wallTime(before) == wall) return before;
  }
  return moment;
}

std::string QtCalendar::halfOfDay(bool afternoon) const {
  const QString form = locale_.timeFormat(QLocale::ShortFormat);
  if (!form.contains(u'a', Qt::CaseInsensitive)) return {};
  return (afternoon ? locale_.pmText() : locale_.amText()).toStdString();
}

}  // namespace vellix
