// What every control is made on: an area pressed by the pointer, by Space or Return, or by click()
// for a screen reader. It never changes a value itself; it tells. Disabled, it does nothing.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointF>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>
#include <QVariant>
#include <optional>

#include "Sight.hpp"

namespace vellix {

class PressArea : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool pressed READ pressed NOTIFY pressedChanged)
  Q_PROPERTY(bool hovered READ hovered NOTIFY hoveredChanged)
  // True while the area has the focus and got it by key: only then a ring is due. It comes back
  // with the focus where the area was disabled for a while, has another parent, or the window was
  // left.
  Q_PROPERTY(bool visualFocus READ visualFocus NOTIFY visualFocusChanged)
  Q_PROPERTY(QString help READ help WRITE setHelp NOTIFY helpChanged)
  // What the area says that a press changes, where a press must not fall on what nobody has seen:
  // one that was made before this was on show, here, does nothing. Nothing by default: all are
  // taken.
  Q_PROPERTY(QVariant says READ says WRITE setSays NOTIFY saysChanged)
  // Presses are taken on at least so much around the middle, in logical pixels, where less is seen
  // than a hand wants. It takes no room beside others.
  Q_PROPERTY(qreal handRoom MEMBER handRoom_ NOTIFY handRoomChanged)
  // Keeps the pointer from being taken by what scrolls around it, for sliders.
  Q_PROPERTY(bool holdsPointer MEMBER holdsPointer_ NOTIFY holdsPointerChanged)
  // Whether a press opens and closes something, and whether that is open: told to a screen reader.
  Q_PROPERTY(bool expandable MEMBER expandable_ NOTIFY expandedChanged)
  Q_PROPERTY(bool expanded MEMBER expanded_ NOTIFY expandedChanged)
  // What is put around the area while that is due.
  Q_PROPERTY(QQmlComponent* ring MEMBER ringOf_ NOTIFY ringChanged)
  // Takes the keyboard and does nothing for now: told as disabled, too.
  Q_PROPERTY(bool idle MEMBER idle_ NOTIFY idleChanged)

 public:
  explicit PressArea(QQuickItem* parent = nullptr);

  bool pressed() const { return pressed_; }
  bool hovered() const { return hovered_; }
  bool visualFocus() const { return visualFocus_; }
  QString help() const { return help_; }
  bool idle() const { return idle_; }
  bool expandable() const { return expandable_; }
  bool expanded() const { return expanded_; }
  void setHelp(const QString& help);
  QVariant says() const { return sight_ ? sight_->says() : QVariant{}; }
  void setSays(const QVariant& says);

  bool contains(const QPointF& point) const override;

  Q_INVOKABLE void click();

 signals:
  // `modifiers` are Qt.KeyboardModifiers, none for a screen reader.
  void clicked(int modifiers);
  // The pointer is held down and has come to `position`.
  void held(const QPointF& position);
  void pressedChanged();
  void hoveredChanged();
  void visualFocusChanged();
  void helpChanged();
  void saysChanged();
  void handRoomChanged();
  void holdsPointerChanged();
  void expandedChanged();
  void idleChanged();
  void ringChanged();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseUngrabEvent() override;
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void setPressed(bool pressed);
  bool begin(quint64 stamp, std::optional<QPointF> at);
  bool isHeld(const QMouseEvent& event) const;
  bool saysTheSame() const { return says() == begunOn_; }
  void setHovered(bool hovered);
  void setVisualFocus(bool visual);
  void showRing();

  bool pressed_ = false;
  bool hovered_ = false;
  bool visualFocus_ = false;
  bool ringWaits_ = false;
  QPointer<QQmlComponent> ringOf_;
  QPointer<QQuickItem> ring_;  // made when it is first due
  qreal handRoom_ = 0;
  bool holdsPointer_ = false;
  bool idle_ = false;
  bool expandable_ = false;
  bool expanded_ = false;
  QString help_;
  Sight* sight_ = nullptr;  // none unless `says` was set
  QVariant begunOn_;        // what the area said when the press began
  QPointF begunAt_;         // in the scene
  quint64 begunStamp_ = 0;  // by the events' own clock
  quint64 formerStamp_ = 0;
  bool isMeant_ = false;  // the press of the pointer that goes on
};

}  // namespace vellix
