#include "Theme.hpp"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QStyleHints>

namespace vellix {
namespace {

QString firstInstalled(std::initializer_list<const char*> families,
                       QFontDatabase::SystemFont fallback) {
  for (const char* family : families) {
    if (QFontDatabase::hasFamily(QString::fromLatin1(family))) return QString::fromLatin1(family);
  }
  return QFontDatabase::systemFont(fallback).family();
}

}  // namespace

Theme::Theme(QObject* parent) : QObject(parent) {
  family_ = firstInstalled({"Inter"}, QFontDatabase::GeneralFont);
  serif_ = firstInstalled({"New York", "EB Garamond", "EB Garamond 12", "Georgia", "Noto Serif"},
                          QFontDatabase::GeneralFont);
  qApp->installEventFilter(this);
  takeDark(systemIsDark());
}

void Theme::setAppearance(const QString& appearance) {
  if (appearance == appearance_) return;
  appearance_ = appearance;
  emit appearanceChanged();
  follow();
}

void Theme::setReducedMotion(bool reduced) {
  if (reduced == reducedMotion_) return;
  reducedMotion_ = reduced;
  emit motionChanged();
}

qreal Theme::pointsPerPixel() const {
  // Where Qt rounds faces to whole pixels, halves shall go down for certain and not by luck.
  constexpr qreal kJustBelow = 0.9999;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return kJustBelow * 72.0 / (screen ? screen->logicalDotsPerInch() : 96.0);
}

void Theme::followSystem(const Look& look) {
  system_ = look.scheme;
  setReducedMotion(look.reducedMotion);
  follow();
}

bool Theme::systemIsDark() const {
  if (system_ != Scheme::unset) return system_ == Scheme::dark;
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
  const auto scheme = QGuiApplication::styleHints()->colorScheme();
  if (scheme != Qt::ColorScheme::Unknown) return scheme == Qt::ColorScheme::Dark;
#endif
  return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) follow();
  return QObject::eventFilter(watched, event);
}

void Theme::takeDark(bool dark) {
  dark_ = dark;
  fore_.setDark(dark);
  tint_.setDark(dark);
}

void Theme::follow() {
  const bool dark = appearance_ == QLatin1String("dark") ||
                    (appearance_ != QLatin1String("light") && systemIsDark());
  if (dark == dark_) return;
  takeDark(dark);
  emit darkChanged();
}

// Looked up where it is wanted: hardly anybody reads a raw log.
QString Theme::fixed() { return QFontDatabase::systemFont(QFontDatabase::FixedFont).family(); }

}  // namespace vellix
