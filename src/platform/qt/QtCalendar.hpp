// Days and their words, by the user's locale and time zone.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>
#include <optional>

#include "platform/ports/calendar.hpp"

namespace vellix {

// The user's locale. Without one, the plain English of the program's own words: the bare "C"
// locale tells every time to the second.
QLocale userLocale();

class QtCalendar : public Calendar {
 public:
  // Without a zone it follows the system's, also when that changes.
  explicit QtCalendar(const QLocale& locale = userLocale(),
                      const std::optional<QTimeZone>& zone = std::nullopt);

  int dayOf(Moment moment) const override;
  std::string shortTime(Moment moment) const override;
  std::string weekday(Moment moment) const override;
  std::string shortWeekday(Moment moment) const override;
  std::string monthAndDay(Moment moment) const override;
  std::string dateAndTime(Moment moment) const override;
  WallTime wallTime(Moment moment) const override;
  Moment momentAt(const WallTime& time) const override;
  std::string halfOfDay(bool afternoon) const override;

 private:
  QDateTime local(Moment moment) const;
  QDateTime local(const QDate& date, const QTime& time) const;
  bool dayBeforeMonth() const;

  QLocale locale_;
  std::optional<QTimeZone> zone_;
};

}  // namespace vellix
