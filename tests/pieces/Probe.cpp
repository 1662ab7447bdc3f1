#include "Probe.hpp"

#include <QAccessible>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMetaEnum>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>
#include <numbers>

namespace {

QStringList warnings;
QtMessageHandler passOn = nullptr;

void note(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  // The platform plugin's remarks on the machine it runs on are none of ours.
  const bool ours = !message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
  if (ours && type != QtDebugMsg && type != QtInfoMsg) warnings.append(message);
  passOn(type, context, message);
}

QImage drawn(const QString& resource) {
  QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QSvgRenderer drawing(resource);
  QPainter painter(&image);
  if (drawing.isValid()) drawing.render(&painter);
  return image;
}

}  // namespace

Probe::Probe(QObject* parent) : QObject(parent) {
  for (const char* scheme : {"https", "http", "mailto", "file"}) {
    QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
  }
}

Probe::~Probe() {
  for (const char* scheme : {"https", "http", "mailto", "file"}) {
    QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
  }
  if (passOn) qInstallMessageHandler(passOn);
}

void Probe::watchWarnings() {
  const QtMessageHandler before = qInstallMessageHandler(note);
  if (before != note) passOn = before;
}

QStringList Probe::takeWarnings() { return std::exchange(warnings, {}); }
QStringList Probe::takeOpened() { return std::exchange(opened_, {}); }

QString Probe::accessibleName(QQuickItem* item) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  return seen ? seen->text(QAccessible::Name) : QString();
}

QString Probe::accessibleDescription(QQuickItem* item) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  return seen ? seen->text(QAccessible::Description) : QString();
}

QString Probe::accessibleRole(QQuickItem* item) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  return seen ? QString::fromLatin1(
                    QMetaEnum::fromType<QAccessible::Role>().valueToKey(seen->role()))
              : QString();
}

bool Probe::accessibleChecked(QQuickItem* item) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  return seen && seen->state().checked;
}

bool Probe::act(QQuickItem* item, const QString& action) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  QAccessibleActionInterface* actions = seen ? seen->actionInterface() : nullptr;
  if (!actions || !actions->actionNames().contains(action)) return false;
  actions->doAction(action);
  return true;
}

bool Probe::setAccessibleValue(QQuickItem* item, double value) const {
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(item);
  QAccessibleValueInterface* values = seen ? seen->valueInterface() : nullptr;
  if (!values) return false;
  values->setCurrentValue(value);
  return true;
}

QStringList Probe::tableNames() const {
  QFile table(QStringLiteral(SYMBOL_TABLE));
  QStringList names;
  if (!table.open(QIODevice::ReadOnly)) return names;
  for (const QByteArray& line : table.readAll().split('\n')) {
    if (!line.isEmpty() && line[0] != '#') names.append(QString::fromLatin1(line.split(' ')[0]));
  }
  return names;
}

QStringList Probe::compiledNames() const {
  QStringList names;
  for (const QString& file : QDir(QStringLiteral(":/symbols")).entryList(QDir::Files)) {
    names.append(file.chopped(4));
  }
  return names;
}

int Probe::marked(const QString& resource) const {
  const QImage image = drawn(resource);
  int marked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) marked += qAlpha(image.pixel(x, y)) > 128;
  }
  return marked;
}

bool Probe::isRound(const QString& resource) const {
  const QImage image = drawn(resource);
  const auto isMarked = [&](double x, double y) {
    const QPointF spot(32 + 32 * x, 32 + 32 * y);
    return image.valid(spot.toPoint()) && qAlpha(image.pixel(spot.toPoint())) > 128;
  };
  for (int step = 0; step < 360; step += 15) {
    const double angle = step * std::numbers::pi / 180;
    const double x = std::cos(angle);
    const double y = std::sin(angle);
    bool found = false;
    for (double r = 0.7; r < 0.85; r += 0.02) found |= isMarked(r * x, r * y);
    if (!found || isMarked(0.92 * x, 0.92 * y)) return false;
  }
  return true;
}

bool Probe::draws(const QString& resource) const {
  // Not empty, and not a full square, which is what a path gone wrong looks like.
  const int pixels = marked(resource);
  return pixels > 40 && pixels < 64 * 64 * 9 / 10;
}
