// What is laid out of the text of a label, in which face, and how it is broken: all that follows
// from what a label is told. It is a part of a Text, whose own properties it sets; a binding for
// each of them would cost more than the text. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QPointer>
#include <QQmlParserStatus>
#include <QQuickItem>
#include <optional>

#include "pieces/ToolTipArea.hpp"
#include "pieces/faces.hpp"

namespace vellix {

class LabelText : public QObject, public QQmlParserStatus {
  Q_OBJECT
  QML_ELEMENT
  Q_INTERFACES(QQmlParserStatus)
  // Of any length: what no line could hold, and nobody would read to its end, is not laid out.
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
  Q_PROPERTY(QString laidOut READ laidOut NOTIFY laidOutChanged)
  // In characters; for a negative one it follows from the lines.
  Q_PROPERTY(int most READ most WRITE setMost NOTIFY mostChanged)
  // A Text.WrapMode as it was asked for, and as it is: for each line, the end of the word that it
  // begins with would be looked for.
  Q_PROPERTY(int wrapMode READ wrapMode WRITE setWrapMode NOTIFY wrapModeChanged)
  Q_PROPERTY(int broken READ broken NOTIFY brokenChanged)
  // As Text's; unless they are set, what does not fit on a single line is cut short at its end, and
  // lines have room between them.
  Q_PROPERTY(int elide READ elide WRITE setElide NOTIFY elideChanged)
  Q_PROPERTY(qreal lineHeight READ lineHeight WRITE setLineHeight NOTIFY lineHeightChanged)
  // In logical pixels, may be a half. What of the Text's font is set there itself stays so.
  Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
  Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)
  // Shows the whole text as help while it is cut short, and where there is no other help.
  Q_PROPERTY(bool tellsWhole READ tellsWhole WRITE setTellsWhole NOTIFY tellsWholeChanged)
  Q_PROPERTY(QString help READ help WRITE setHelp NOTIFY helpChanged)

 public:
  explicit LabelText(QObject* parent = nullptr) : QObject(parent) {}

  QString text() const { return text_; }
  void setText(const QString& text);
  QString laidOut() const { return laidOut_; }
  int most() const;
  void setMost(int most);
  int wrapMode() const { return wrapMode_; }
  void setWrapMode(int mode);
  int broken() const { return broken_; }
  int elide() const;
  void setElide(int elide);
  qreal lineHeight() const;
  void setLineHeight(qreal height);
  qreal size() const { return size_; }
  void setSize(qreal size);
  int weight() const { return weight_; }
  void setWeight(int weight);
  bool tellsWhole() const { return tellsWhole_; }
  void setTellsWhole(bool tells);
  QString help() const { return help_; }
  void setHelp(const QString& help);

  void classBegin() override {}
  void componentComplete() override;

 signals:
  void textChanged();
  void laidOutChanged();
  void mostChanged();
  void wrapModeChanged();
  void brokenChanged();
  void elideChanged();
  void lineHeightChanged();
  void sizeChanged();
  void weightChanged();
  void tellsWholeChanged();
  void helpChanged();

 private slots:
  void layOut();
  void tellHelp();
  void cover();

 private:
  QQuickItem* item() const { return static_cast<QQuickItem*>(parent()); }
  template <class T>
  bool take(T& held, const T& told, void (LabelText::*changed)());
  void putIn();
  void spread();
  void dress();

  QString text_;
  QString laidOut_;
  QString help_;
  std::optional<int> most_;
  std::optional<int> elide_;
  std::optional<qreal> lineHeight_;
  qreal size_ = kRowSize;
  int weight_ = QFont::Normal;
  int wrapMode_ = 0;  // Text.NoWrap
  int broken_ = 0;
  uint own_ = 0;  // what of the font was set there itself, as QFont::ResolveProperties
  bool tellsWhole_ = false;
  bool isComplete_ = false;
  bool watchesLines_ = false;
  QPointer<ToolTipArea> helpArea_;
};

}  // namespace vellix
