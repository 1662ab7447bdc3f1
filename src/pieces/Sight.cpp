#include "Sight.hpp"

#include <QQuickItem>
#include <QQuickWindow>
#include <chrono>

namespace vellix {
namespace {

// Whoever presses twice in a row has not seen yet what the first press did.
constexpr qint64 kOnePress = 300;
// Nor has a pointer that was on its way.
constexpr qint64 kOnTheWay = 100;
// A stamp that is further from now is of another clock.
constexpr quint32 kLongest = 10'000;

qint64 now() {
  if (Sight::clock) return Sight::clock();
  const auto passed = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

// Platforms stamp events by the steady clock, some of them with its last 32 bits.
qint64 madeAt(quint64 stamp) {
  const qint64 present = now();
  const quint32 ago = static_cast<quint32>(present) - static_cast<quint32>(stamp);
  return ago < kLongest ? present - ago : present;
}

}  // namespace

Sight::Sight(QQuickItem* area) : QObject(area), area_(*area) {
  connect(area, &QQuickItem::windowChanged, this, &Sight::watch);
  watch(area->window());
}

void Sight::watch(QQuickWindow* window) {
  disconnect(watching_);
  seen_.reset();
  if (window) watching_ = connect(window, &QQuickWindow::frameSwapped, this, &Sight::look);
}

void Sight::look() {
  if (!area_.isVisible()) {
    seen_.reset();
    return;
  }
  const QRectF place = area_.mapRectToScene(area_.boundingRect());
  if (!seen_) {
    // That it is there at all is news by its place alone.
    seen_ = Seen{.says = says_, .place = place, .former = {}, .saysSince = 0, .placeSince = now()};
    return;
  }
  if (place != seen_->place) {
    seen_->former = std::exchange(seen_->place, place);
    seen_->placeSince = now();
  }
  if (says_ != seen_->says) {
    seen_->says = says_;
    seen_->saysSince = now();
  }
}

bool Sight::wasMeant(quint64 stamp, std::optional<QPointF> at) const {
  if (!seen_ || seen_->says != says_) return false;
  const qint64 made = madeAt(stamp);
  if (seen_->saysSince > 0 && made < seen_->saysSince + kOnePress) return false;
  // Under the keyboard an area is the same wherever it is.
  return !at || made >= seen_->placeSince + kOnTheWay || seen_->former.contains(*at);
}

}  // namespace vellix
