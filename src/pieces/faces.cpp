#include "pieces/faces.hpp"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

namespace vellix {

QString familyOfViews() {
  static const QString family =
      QFontDatabase::hasFamily(QStringLiteral("Inter"))
          ? QStringLiteral("Inter")
          : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
  return family;
}

qreal pointsPerPixel() {
  // Where Qt rounds faces to whole pixels, halves shall go down for certain and not by luck.
  constexpr qreal kJustBelow = 0.9999;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return kJustBelow * 72.0 / (screen ? screen->logicalDotsPerInch() : 96.0);
}

}  // namespace vellix
