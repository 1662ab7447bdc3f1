#include "Symbol.hpp"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace vellix {
namespace {

// The drawings are made on a field of 256, on which a round symbol is 208 high.
constexpr qreal kFieldPerSymbol = 256.0 / 208.0;
// Below this size the bolder drawings keep the strokes about one pixel wide.
constexpr qreal kSmall = 14;

}  // namespace

Symbol::Symbol(QQuickItem* parent) : RasterItem(parent) { setImplicitSize(size_, size_); }

QStringList Symbol::names() {
  QStringList names = QDir(QStringLiteral(":/symbols")).entryList(QDir::Files, QDir::Name);
  for (QString& name : names) name.chop(4);
  return names;
}

void Symbol::setName(const QString& name) {
  if (name == name_) return;
  name_ = name;
  polish();
  emit nameChanged();
}

void Symbol::setSize(qreal size) {
  if (qFuzzyCompare(size, size_)) return;
  size_ = size;
  setImplicitSize(size, size);
  polish();
  emit sizeChanged();
}

QRectF Symbol::drawingRect() const {
  const qreal field = size_ * kFieldPerSymbol;
  return QRectF((width() - field) / 2, (height() - field) / 2, field, field);
}

void Symbol::draw(QPainter& painter, const QRectF& rect) const {
  const QString folder = QLatin1String(size_ < kSmall ? ":/symbols/small/" : ":/symbols/");
  QFile file(folder + name_ + QLatin1String(".svg"));
  if (!file.open(QIODevice::ReadOnly)) {
    qWarning("No drawing of the symbol \"%s\"", qPrintable(name_));
    return;
  }
  QSvgRenderer drawing(file.readAll().replace("currentColor", color().name().toLatin1()));
  painter.setOpacity(color().alphaF());
  drawing.render(&painter, rect);
}

}  // namespace vellix
