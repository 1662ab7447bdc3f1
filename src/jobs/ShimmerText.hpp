// One line of text with a light that runs over it. Where the light is, is told by `phase`; only the
// line's own place is painted anew. What does not fit is cut short at its end. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>
#include <QImage>

#include "pictures/GridItem.hpp"

namespace vellix {

class ShimmerText : public vellix::GridItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text MEMBER text_ WRITE setText NOTIFY looksChanged)
  Q_PROPERTY(QFont font MEMBER font_ WRITE setFont NOTIFY looksChanged)
  Q_PROPERTY(QColor color MEMBER color_ WRITE setColor NOTIFY looksChanged)
  Q_PROPERTY(QColor light MEMBER light_ WRITE setLight NOTIFY looksChanged)
  // -1 in front of the line, 1 behind it.
  Q_PROPERTY(qreal phase MEMBER phase_ WRITE setPhase NOTIFY looksChanged)

 public:
  using GridItem::GridItem;

  void setText(const QString& text) { changeLine(text_, text); }
  void setFont(const QFont& font) { changeLine(font_, font); }
  void setColor(const QColor& color) { change(color_, color); }
  void setLight(const QColor& light) { change(light_, light); }
  void setPhase(qreal phase) { change(phase_, phase); }

 signals:
  void looksChanged();

 protected:
  void resized() override { polish(); }
  void updatePolish() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  // The light moves with every frame, and nothing of the line's size with it.
  template <class T>
  void change(T& member, const T& value) {
    if (member == value) return;
    member = value;
    polish();
    emit looksChanged();
  }
  template <class T>
  void changeLine(T& member, const T& value) {
    if (member == value) return;
    change(member, value);
    measure();
  }
  void measure();

  QString text_;
  QFont font_;
  QColor color_{Qt::black};
  QColor light_{Qt::black};
  qreal phase_ = -1;
  QImage image_;
};

}  // namespace vellix
