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

std::string QtCalendar::monthAndDay(Moment moment) const {
  const QString order = locale_.dateFormat(QLocale::ShortFormat);
  const bool dayFirst = order.indexOf(u'd') < order.indexOf(u'M');
  return locale_.toString(local(moment).date(), dayFirst ? "d MMM" : "MMM d").toStdString();
}

}  // namespace vellix
