#include "Theme.hpp"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QStyleHints>
#include <cmath>

#include "pieces/written_keys.hpp"

namespace vellix {
namespace {

QString firstInstalled(std::initializer_list<const char*> families,
                       QFontDatabase::SystemFont fallback) {
  for (const char* family : families) {
    if (QFontDatabase::hasFamily(QString::fromLatin1(family))) return QString::fromLatin1(family);
  }
  return QFontDatabase::systemFont(fallback).family();
}

// Between a channel as it is written and the light that it gives, both 0 to 1.
double lightOf(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}
double channelOf(double light) {
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
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
  strong_.setDark(dark);
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

QColor Theme::underWhite(const QColor& colour) {
  const double red = lightOf(colour.redF());
  const double green = lightOf(colour.greenF());
  const double blue = lightOf(colour.blueF());
  const double light = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  // White has 4.5 times the contrast there.
  constexpr double kMost = 1.05 / 4.5 - 0.05;
  if (light <= kMost) return colour;
  // Less of the same light, rounded down.
  const auto dimmed = [&](double part) {
    return static_cast<int>(255 * channelOf(part * kMost / light));
  };
  return {dimmed(red), dimmed(green), dimmed(blue)};
}

QString Theme::keys(const QString& words) {
  return QString::fromStdString(writtenKeys(words.toStdString()));
}

}  // namespace vellix
