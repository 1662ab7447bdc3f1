// Colours, sizes and timings of every view, for QML the singleton "Theme". Lengths are logical
// pixels, durations milliseconds. Lives on the main thread.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QVariantList>

#include "pieces/Tones.hpp"
#include "pieces/shown_text.hpp"
#include "platform/ports/look.hpp"

namespace vellix {

#define VELLIX_COLOUR(name, light, darkForm)                               \
  Q_PROPERTY(QColor name READ name NOTIFY darkChanged)                     \
 public:                                                                   \
  QColor name() const { return dark_ ? QColor(darkForm) : QColor(light); } \
                                                                           \
 private:
#define VELLIX_CONSTANT(type, name, value) \
  Q_PROPERTY(type name READ name CONSTANT) \
 public:                                   \
  type name() const { return value; }      \
                                           \
 private:

class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  // "system", "light" or "dark"; any other text is taken as "system".
  Q_PROPERTY(QString appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
  Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
  Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY motionChanged)

  VELLIX_COLOUR(accent, "#e4572e", "#f06a3f")
  VELLIX_COLOUR(success, "#2e8b57", "#45b97a")
  VELLIX_COLOUR(danger, "#c8341c", "#ff6a4f")
  VELLIX_COLOUR(warning, "#c77a00", "#e9a23b")
  VELLIX_COLOUR(text, "#1d1917", "#ffffff")
  VELLIX_COLOUR(ink, "#0f0b0a", "#f3f1ec")
  VELLIX_COLOUR(muted, "#453d39", "#cfc6bd")
  VELLIX_COLOUR(faint, "#6a625d", "#a49c94")
  // The accent's shade for small words; those of the tones are in `strong`.
  VELLIX_COLOUR(strongAccent, "#9c391d", "#f4764e")
  VELLIX_COLOUR(window, "#f3f6f7", "#12100f")
  VELLIX_COLOUR(column, "#ebeeef", "#171412")
  VELLIX_COLOUR(canvas, "#e6eaeb", "#0d0b0a")
  VELLIX_COLOUR(card, "#f4f5f2", "#26211e")
  VELLIX_COLOUR(well, "#ecede1", "#2a2621")
  VELLIX_COLOUR(line, "#e0e1e1", "#332d29")
  // What lies on a ground and is pressed or read by itself: buttons, fields, cards, popovers.
  VELLIX_COLOUR(raised, "#ffffff", "#26211e")
  // The moving part of a segmented control.
  VELLIX_COLOUR(thumb, "#ffffff", "#3a332e")
  VELLIX_CONSTANT(QColor, paper, QColor("#fdfcf8"))
  VELLIX_CONSTANT(QColor, onAccent, QColor("#ffffff"))
  VELLIX_COLOUR(toast, "#1d1917", "#3a332e")
  VELLIX_CONSTANT(QColor, onToast, QColor("#ffffff"))
  VELLIX_COLOUR(toastButton, "#22ffffff", "#24ffffff")
  // Under a pill or a count in a selected row, whose fill would take from their words.
  VELLIX_COLOUR(pillBed, "#ffffff", "#12100f")
  // Over a row or a button: text at 4, 6 and 9 %; the accent at 10, 35 and 60 %.
  VELLIX_COLOUR(hoverFill, "#0a1d1917", "#0affffff")
  VELLIX_COLOUR(quietFill, "#0f1d1917", "#0fffffff")
  VELLIX_COLOUR(trackFill, "#0d1d1917", "#12ffffff")
  // Over a filled button, whose white words want no lighter ground.
  VELLIX_CONSTANT(QColor, hoverShade, QColor("#1f000000"))
  // Along the inner edge of what is let into the ground.
  VELLIX_COLOUR(bevelLine, "#b3ffffff", "#0dffffff")
  VELLIX_COLOUR(selectedFill, "#1ae4572e", "#1af06a3f")
  VELLIX_COLOUR(selectedLine, "#59e4572e", "#59f06a3f")
  VELLIX_COLOUR(focusLine, "#99e4572e", "#99f06a3f")
  VELLIX_CONSTANT(QColor, shadow, QColor("#2e000000"))
  VELLIX_COLOUR(scrim, "#47000000", "#80000000")

  // By the tone's name: Theme.fore.red is its foreground, Theme.tint.red its tinted ground, and
  // Theme.strong.red the shade for words and marks that stand outside of pills.
  Q_PROPERTY(vellix::Tones* fore READ fore CONSTANT)
  Q_PROPERTY(vellix::Tones* strong READ strong CONSTANT)
  Q_PROPERTY(vellix::Tones* tint READ tint CONSTANT)
  Q_PROPERTY(vellix::PaperTones* onPaper READ onPaper CONSTANT)

  // Faces. `pointsPerPixel` turns a size in logical pixels into font.pointSize, which keeps halves
  // where the platform draws them.
  Q_PROPERTY(QString family READ family CONSTANT)
  Q_PROPERTY(QString serif READ serif CONSTANT)
  Q_PROPERTY(QString fixed READ fixed CONSTANT)  // of equal widths
  Q_PROPERTY(qreal pointsPerPixel READ pointsPerPixel CONSTANT)
  VELLIX_CONSTANT(qreal, tiny, 11)
  VELLIX_CONSTANT(qreal, small, 11.5)
  VELLIX_CONSTANT(qreal, note, 12)
  VELLIX_CONSTANT(qreal, body, 12.5)
  VELLIX_CONSTANT(qreal, row, 13)
  VELLIX_CONSTANT(qreal, lead, 13.5)
  VELLIX_CONSTANT(qreal, large, 14)
  VELLIX_CONSTANT(qreal, title, 20)
  VELLIX_CONSTANT(qreal, display, 26)
  VELLIX_CONSTANT(qreal, lineHeight, 1.35)
  // In characters.
  VELLIX_CONSTANT(int, mostShown, kMostShown)
  VELLIX_CONSTANT(int, mostOnALine, kMostOnALine)

  VELLIX_CONSTANT(int, gap4, 4)
  VELLIX_CONSTANT(int, gap8, 8)
  VELLIX_CONSTANT(int, gap12, 12)
  VELLIX_CONSTANT(int, gap16, 16)
  VELLIX_CONSTANT(int, gap24, 24)
  VELLIX_CONSTANT(int, radiusControl, 6)
  VELLIX_CONSTANT(int, radiusRow, 10)
  VELLIX_CONSTANT(int, radiusCard, 16)

  // Both are 0 while motion is reduced. `curve` is for easing.bezierCurve.
  Q_PROPERTY(int hover READ hover NOTIFY motionChanged)
  Q_PROPERTY(int standard READ standard NOTIFY motionChanged)
  Q_PROPERTY(QVariantList curve READ curve CONSTANT)

 public:
  explicit Theme(QObject* parent = nullptr);

  QString appearance() const { return appearance_; }
  void setAppearance(const QString& appearance);
  bool dark() const { return dark_; }
  bool reducedMotion() const { return reducedMotion_; }
  void setReducedMotion(bool reduced);
  // What the desktop says counts where the person has chosen nothing else here. While it says
  // nothing, the lightness of its palette does.
  void followSystem(const Look& look);
  Tones* fore() { return &fore_; }
  Tones* strong() { return &strong_; }
  Tones* tint() { return &tint_; }
  PaperTones* onPaper() { return &onPaper_; }
  QString family() const { return family_; }
  QString serif() const { return serif_; }
  static QString fixed();
  qreal pointsPerPixel() const;
  // The nearest shade of a colour that white words can be read on.
  Q_INVOKABLE static QColor underWhite(const QColor& colour);
  // Words that name keys, as the platform writes these.
  Q_INVOKABLE static QString keys(const QString& words);
  int hover() const { return reducedMotion_ ? 0 : 120; }
  int standard() const { return reducedMotion_ ? 0 : 320; }
  QVariantList curve() const { return {0.2, 0.8, 0.2, 1.0, 1.0, 1.0}; }

 signals:
  void appearanceChanged();
  void darkChanged();
  void motionChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool systemIsDark() const;
  void follow();
  void takeDark(bool dark);

  QString appearance_ = QStringLiteral("system");
  Scheme system_ = Scheme::unset;
  bool dark_ = false;
  bool reducedMotion_ = false;
  Tones fore_{Tones::foregrounds};
  Tones strong_{Tones::strongForegrounds};
  Tones tint_{Tones::grounds};
  PaperTones onPaper_;
  QString family_;
  QString serif_;
};

#undef VELLIX_COLOUR
#undef VELLIX_CONSTANT

}  // namespace vellix
