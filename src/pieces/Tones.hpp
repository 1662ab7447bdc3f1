// The seven tones, by name: their foregrounds, the stronger shade for what stands by itself, or
// their tinted grounds. And the colours of what lies on paper, which is as light in the dark look.
// Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>

namespace vellix {

// In the dark look the foreground is strong enough by itself.
#define VELLIX_TONE(name, light, strongLight, darkForm, lightAlpha, darkAlpha) \
  Q_PROPERTY(QColor name READ name NOTIFY changed)                             \
 public:                                                                       \
  QColor name() const {                                                        \
    if (dark_) return toned(QColor(darkForm), darkAlpha);                      \
    if (form_ == strongForegrounds) return QColor(strongLight);                \
    return toned(QColor(light), lightAlpha);                                   \
  }                                                                            \
                                                                               \
 private:
#define VELLIX_ON_PAPER(name, value)         \
  Q_PROPERTY(QColor name READ name CONSTANT) \
 public:                                     \
  QColor name() const { return value; }      \
                                             \
 private:

class Tones : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  VELLIX_TONE(purple, "#7442e8", "#703fe0", "#a684ff", 0.11F, 0.18F)
  VELLIX_TONE(amber, "#d48a12", "#8a5808", "#f2b544", 0.16F, 0.17F)
  VELLIX_TONE(green, "#24a35a", "#16713d", "#4cd486", 0.13F, 0.16F)
  VELLIX_TONE(red, "#de5246", "#ac3e34", "#ff7a6e", 0.12F, 0.17F)
  VELLIX_TONE(orange, "#e07a2c", "#97501a", "#ffa05c", 0.12F, 0.17F)
  VELLIX_TONE(blue, "#1a84f0", "#1163b6", "#5ab0ff", 0.12F, 0.17F)
  VELLIX_TONE(gray, "#76716d", "#66625e", "#a8a29c", 0.13F, 0.16F)

 public:
  enum Form { foregrounds, strongForegrounds, grounds };
  explicit Tones(Form form) : form_(form) {}

  void setDark(bool dark) {
    dark_ = dark;
    emit changed();
  }

 signals:
  void changed();

 private:
  QColor toned(QColor colour, float alpha) const {
    if (form_ == grounds) colour.setAlphaF(alpha);
    return colour;
  }

  const Form form_;
  bool dark_ = false;
};

class PaperTones : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  VELLIX_ON_PAPER(accent, QColor("#e4572e"))
  VELLIX_ON_PAPER(green, QColor("#2e8b57"))
  VELLIX_ON_PAPER(muted, QColor("#453d39"))
  VELLIX_ON_PAPER(reference, QColor("#1a84f0"))
};

#undef VELLIX_ON_PAPER
#undef VELLIX_TONE

}  // namespace vellix
