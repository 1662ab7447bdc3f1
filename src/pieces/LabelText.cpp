#include "LabelText.hpp"

#include <QMetaProperty>
#include <algorithm>

#include "pieces/shown_text.hpp"

namespace vellix {
namespace {

// As QML's Text numbers them.
enum Wrap { noWrap = 0, wrapAnywhere = 3, wrap = 4 };
enum Elide { elideRight = 1, elideNone = 3 };

// Qt Quick's own properties of a Text, whatever a label has under the same names.
struct TextType {
  explicit TextType(const QMetaObject* type) {
    while (qstrcmp(type->className(), "QQuickText") != 0) type = type->superClass();
    const auto named = [&](const char* name) {
      return type->property(type->indexOfProperty(name));
    };
    text = named("text");
    wrapMode = named("wrapMode");
    elide = named("elide");
    lineHeight = named("lineHeight");
    font = named("font");
    maximumLineCount = named("maximumLineCount");
    truncated = named("truncated");
  }

  QMetaProperty text, wrapMode, elide, lineHeight, font, maximumLineCount, truncated;
};

const TextType& typeOf(const QObject* text) {
  static const TextType type{text->metaObject()};
  return type;
}

// An emoji is two characters, and is not cut in half.
QString shownTo(const QString& text, int most) {
  if (text.size() <= most) return text;
  const bool halves = most > 0 && text[most - 1].isHighSurrogate();
  return text.left(halves ? most - 1 : most) + u'…';
}

bool hasEndlessWord(const QString& text) {
  int length = 0;
  return std::ranges::any_of(text, [&](QChar each) {
    length = each == u' ' || each == u'\n' || each == u'\t' ? 0 : length + 1;
    return length == kMostOnALine;
  });
}

}  // namespace

template <class T>
bool LabelText::take(T& held, const T& told, void (LabelText::*changed)()) {
  if (held == told) return false;
  held = told;
  emit(this->*changed)();
  return true;
}

int LabelText::most() const {
  if (most_) return *most_;
  if (wrapMode_ == noWrap) return kMostOnALine;
  const int lines = typeOf(item()).maximumLineCount.read(item()).toInt();
  return lines < kMostShown / kMostOnALine ? lines * kMostOnALine : kMostShown;
}

int LabelText::elide() const {
  return elide_.value_or(wrapMode_ == noWrap ? elideRight : elideNone);
}

qreal LabelText::lineHeight() const {
  return lineHeight_.value_or(wrapMode_ == noWrap ? 1 : kLineHeight);
}

void LabelText::setText(const QString& text) {
  if (!take(text_, text, &LabelText::textChanged)) return;
  layOut();
  tellHelp();
}

void LabelText::setMost(int most) {
  if (take(most_, std::optional{most}, &LabelText::mostChanged)) layOut();
}

void LabelText::setWrapMode(int mode) {
  if (!take(wrapMode_, mode, &LabelText::wrapModeChanged)) return;
  layOut();
  spread();
}

void LabelText::setElide(int elide) {
  if (take(elide_, std::optional{elide}, &LabelText::elideChanged)) spread();
}

void LabelText::setLineHeight(qreal height) {
  if (take(lineHeight_, std::optional{height}, &LabelText::lineHeightChanged)) spread();
}

void LabelText::setSize(qreal size) {
  if (take(size_, size, &LabelText::sizeChanged)) dress();
}

void LabelText::setWeight(int weight) {
  if (take(weight_, weight, &LabelText::weightChanged)) dress();
}

void LabelText::setTellsWhole(bool tells) {
  if (!take(tellsWhole_, tells, &LabelText::tellsWholeChanged)) return;
  if (tells)
    connect(item(), SIGNAL(truncatedChanged()), this, SLOT(tellHelp()), Qt::UniqueConnection);
  tellHelp();
}

void LabelText::setHelp(const QString& help) {
  if (take(help_, help, &LabelText::helpChanged)) tellHelp();
}

void LabelText::componentComplete() {
  isComplete_ = true;
  own_ = typeOf(item()).font.read(item()).value<QFont>().resolveMask();
  dress();
  spread();
  putIn();
  tellHelp();
}

void LabelText::layOut() {
  const bool fits = text_.size() <= kMostOnALine && !most_;
  if (!fits && !watchesLines_) {
    watchesLines_ = connect(item(), SIGNAL(maximumLineCountChanged()), this, SLOT(layOut()));
  }
  take(laidOut_, fits ? text_ : shownTo(text_, most()), &LabelText::laidOutChanged);
  const bool endless =
      wrapMode_ == wrap && laidOut_.size() > kMostOnALine && hasEndlessWord(laidOut_);
  take(broken_, endless ? int{wrapAnywhere} : wrapMode_, &LabelText::brokenChanged);
  if (isComplete_) putIn();
}

void LabelText::putIn() {
  typeOf(item()).wrapMode.write(item(), broken_);
  typeOf(item()).text.write(item(), laidOut_);
}

// How what does not fit on one line is shown.
void LabelText::spread() {
  if (!isComplete_) return;
  typeOf(item()).elide.write(item(), elide());
  typeOf(item()).lineHeight.write(item(), lineHeight());
}

void LabelText::dress() {
  if (!isComplete_) return;
  auto font = typeOf(item()).font.read(item()).value<QFont>();
  if (!(own_ & QFont::FamiliesResolved)) font.setFamily(familyOfViews());
  if (!(own_ & QFont::SizeResolved)) font.setPointSizeF(size_ * pointsPerPixel());
  if (!(own_ & QFont::WeightResolved)) font.setWeight(static_cast<QFont::Weight>(weight_));
  typeOf(item()).font.write(item(), font);
}

void LabelText::tellHelp() {
  if (!isComplete_) return;
  const bool cutShort = tellsWhole_ && typeOf(item()).truncated.read(item()).toBool();
  const QString help = !help_.isEmpty() ? help_ : cutShort ? text_ : QString{};
  if (!helpArea_) {
    // Most have none.
    if (help.isEmpty()) return;
    helpArea_ = new ToolTipArea(item());
    connect(item(), &QQuickItem::widthChanged, this, &LabelText::cover);
    connect(item(), &QQuickItem::heightChanged, this, &LabelText::cover);
    cover();
  }
  helpArea_->setText(help);
}

void LabelText::cover() {
  if (helpArea_) helpArea_->setSize(item()->size());
}

}  // namespace vellix
