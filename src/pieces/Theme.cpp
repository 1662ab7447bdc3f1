#include "Theme.hpp"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QStyleHints>

namespace vellix {
namespace {

struct Tone {
  const char* name;
  QRgb light;
  QRgb dark;
  double lightAlpha;
  double darkAlpha;
};
constexpr Tone kTones[] = {
    {"purple", 0xff7442e8, 0xffa684ff, 0.11, 0.18}, {"amber", 0xffd48a12, 0xfff2b544, 0.16, 0.17},
    {"green", 0xff24a35a, 0xff4cd486, 0.13, 0.16},  {"red", 0xffde5246, 0xffff7a6e, 0.12, 0.17},
    {"orange", 0xffe07a2c, 0xffffa05c, 0.12, 0.17}, {"blue", 0xff1a84f0, 0xff5ab0ff, 0.12, 0.17},
    {"gray", 0xff76716d, 0xffa8a29c, 0.13, 0.16},
};

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
  dark_ = systemIsDark();
  fillTones();
  onPaper_.insert(QStringLiteral("accent"), QColor("#e4572e"));
  onPaper_.insert(QStringLiteral("green"), QColor("#2e8b57"));
  onPaper_.insert(QStringLiteral("muted"), QColor("#453d39"));
  onPaper_.insert(QStringLiteral("reference"), QColor("#1a84f0"));
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

void Theme::follow() {
  const bool dark = appearance_ == QLatin1String("dark") ||
                    (appearance_ != QLatin1String("light") && systemIsDark());
  if (dark == dark_) return;
  dark_ = dark;
  fillTones();
  emit darkChanged();
}

void Theme::fillTones() {
  for (const Tone& tone : kTones) {
    QColor colour = QColor::fromRgba(dark_ ? tone.dark : tone.light);
    fore_.insert(QString::fromLatin1(tone.name), colour);
    colour.setAlphaF(static_cast<float>(dark_ ? tone.darkAlpha : tone.lightAlpha));
    tint_.insert(QString::fromLatin1(tone.name), colour);
  }
}

}  // namespace vellix
