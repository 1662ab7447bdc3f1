// What was last seen of an area that changes something when it is pressed. A press is meant for
// what was on show when it was made, which may be another thing by the time it is heard of: the
// window was busy, or what the area says has changed that very moment. Main thread only.
#pragma once

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QVariant>
#include <optional>

class QQuickItem;
class QQuickWindow;

namespace vellix {

class Sight : public QObject {
  Q_OBJECT

 public:
  // Belongs to the area that it is a sight of.
  explicit Sight(QQuickItem* area);

  const QVariant& says() const { return says_; }
  void setSays(const QVariant& says) { says_ = says; }

  // The steady clock in milliseconds; tests put one of their own in its place.
  static inline qint64 (*clock)() = nullptr;

  // Whether a press was meant for the area as it is now. `stamp` is the event's own time, `at`
  // where the pointer is in the scene.
  bool wasMeant(quint64 stamp, std::optional<QPointF> at) const;

 private:
  void watch(QQuickWindow* window);
  void look();

  struct Seen {
    QVariant says;
    QRectF place;          // in the scene
    QRectF former;         // where it was before that
    qint64 saysSince = 0;  // milliseconds of the steady clock, as all of these
    qint64 placeSince = 0;
  };

  QQuickItem& area_;
  QVariant says_;
  std::optional<Seen> seen_;  // none while it is not on show
  QMetaObject::Connection watching_;
};

}  // namespace vellix
