// Draws the symbol of a given name in one colour. `size` is the height of a round symbol in logical
// pixels. An unknown name draws nothing and says so on the log.
#pragma once

#include <QStringList>

#include "RasterItem.hpp"

namespace vellix {

class Symbol : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
  Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)

 public:
  explicit Symbol(QQuickItem* parent = nullptr);

  static QStringList names();  // of all symbols, in order

  QString name() const { return name_; }
  void setName(const QString& name);
  qreal size() const { return size_; }
  void setSize(qreal size);

 signals:
  void nameChanged();
  void sizeChanged();

 protected:
  QString drawingKey() const override { return name_; }
  QRectF drawingRect() const override;
  void draw(QPainter& painter, const QRectF& rect) const override;

 private:
  QString name_;
  qreal size_ = 14;
};

}  // namespace vellix
