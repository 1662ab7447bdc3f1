#include "compare/BoxMarks.hpp"

#include <QCursor>
#include <algorithm>
#include <numeric>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "compare/MarksAccess.hpp"
#include "compare/marks.hpp"
#include "pieces/HelpTip.hpp"

namespace vellix {

BoxMark::BoxMark(int id, BoxMarks& marks) : PressArea(&marks), id_(id), marks_(marks) {
  // The pointer is the business of all of them.
  setAcceptedMouseButtons(Qt::NoButton);
  setAcceptHoverEvents(false);
}

void BoxMark::keyPressEvent(QKeyEvent* event) {
  const bool back = event->key() == Qt::Key_Backtab ||
                    (event->key() == Qt::Key_Tab && (event->modifiers() & Qt::ShiftModifier));
  const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (!plain || (!back && event->key() != Qt::Key_Tab)) return PressArea::keyPressEvent(event);
  event->setAccepted(back ? marks_.step(id_, -1, Qt::BacktabFocusReason)
                          : marks_.step(id_, 1, Qt::TabFocusReason));
}

BoxMarks::BoxMarks(QQuickItem* parent)
    : PressArea(parent), below_(new MarkFrames(this)), above_(new MarkFrames(this)) {
  tellMarks();
  setActiveFocusOnTab(false);
  setCursor(Qt::PointingHandCursor);
  above_->setZ(1);
  connect(this, &BoxMarks::paneChanged, this, &BoxMarks::read);
  connect(this, &BoxMarks::coloursChanged, this, &BoxMarks::draw);
  connect(this, &PressArea::clicked, this, [this] { press(held_); });
}

BoxMarks::~BoxMarks() {
  hover(nullptr);
  for (const Mark& mark : marks_) {
    if (mark.item) mark.item->disconnect(this);
  }
}

void BoxMarks::setCompare(CompareModel* compare) {
  if (compare == compare_) return;
  hover(nullptr);
  if (compare_) compare_->disconnect(this);
  compare_ = compare;
  if (compare_) {
    connect(compare_, &CompareModel::boxesChanged, this, &BoxMarks::read);
    connect(compare_, &CompareModel::pointedChanged, this, &BoxMarks::draw);
  }
  emit compareChanged();
  read();
}

const BoxMarks::Mark* BoxMarks::markOf(int id) const {
  const auto found = places_.find(id);
  return found == places_.end() ? nullptr : &marks_[found->second];
}

const BoxMarks::Mark* BoxMarks::at(QPointF point) const {
  const auto found = std::ranges::find_if(order_.rbegin(), order_.rend(), [&](std::size_t i) {
    return marks_[i].place.contains(point);
  });
  return found == order_.rend() ? nullptr : &marks_[*found];
}

// Those that stay keep their ids, and with them hover, press and keyboard.
void BoxMarks::read() {
  static const std::vector<BoxMarkView> kNone;
  const auto& views = compare_ ? compare_->boxes(pane_) : kNone;
  if (std::ranges::equal(marks_, views, {}, &Mark::view)) return;
  std::unordered_map<std::string, Mark> former;
  for (Mark& mark : marks_) former.emplace(mark.view.key, std::move(mark));
  std::vector<std::pair<int, BoxMarkView>> changed;
  const bool sameKeys = std::ranges::equal(
      marks_, views, {}, [](const Mark& mark) { return mark.id; },
      [&](const BoxMarkView& view) {
        const auto known = former.find(view.key);
        return known == former.end() ? 0 : known->second.id;
      });
  marks_.clear();
  places_.clear();
  std::unordered_set<std::string_view> keys;
  for (const BoxMarkView& view : views) {
    if (!keys.insert(view.key).second) continue;
    const auto known = former.extract(view.key);
    Mark mark = known ? std::move(known.mapped()) : Mark{.id = ++lastId_};
    if (known && mark.view != view) changed.emplace_back(mark.id, std::move(mark.view));
    mark.view = view;
    places_.emplace(mark.id, marks_.size());
    marks_.push_back(std::move(mark));
  }
  place();
  if (!marks_.empty()) itemOf(marks_.front().id);
  if (!marks_.empty()) itemOf(marks_.back().id);
  stack();
  if (!sameKeys) emit marksChanged();
  for (const auto& [id, before] : changed) emit markChanged(id, before);
  for (const auto& [key, mark] : former) {
    if (!mark.item) continue;
    mark.item->setParentItem(nullptr);
    mark.item->deleteLater();
  }
  if (!hoveredMark()) hover(nullptr);
}

// Of the mark under the pointer, where it is now.
void BoxMarks::tellHelp() {
  const Mark* under = hoveredMark();
  if (under) HelpTip::reword(this, QString::fromStdString(under->view.help), under->place);
}

// A small one within a large one can still be pressed.
void BoxMarks::place() {
  const Extent picture{width(), height()};
  for (Mark& mark : marks_) {
    mark.place = rectOf(inSight(boxMark(mark.view.box, picture), picture));
    if (mark.item) follow(mark.item);
  }
  order_.resize(marks_.size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  std::ranges::stable_sort(order_, std::ranges::greater{}, [this](std::size_t i) {
    const Box& box = marks_[i].view.box;
    return box.width * box.height;
  });
  tellHelp();
  draw();
}

MarkFrames::Frame BoxMarks::frameOf(const Mark& mark, const std::string& pointed) const {
  const BoxMarkView& view = mark.view;
  const bool lit =
      view.selected || mark.id == hovered_ || (!view.finding.empty() && view.finding == pointed);
  MarkFrames::Frame frame{.id = mark.id, .place = mark.place};
  frame.look.color = view.colour == "green" ? green_ : view.colour == "muted" ? muted_ : accent_;
  frame.look.line = lit ? 2.4 : 1.6;
  frame.look.dash = view.line == "dashed" ? 4 : view.line == "dotted" ? 1.6 : 0;
  frame.fill = view.selected ? 0.1 : 0;
  return frame;
}

std::vector<MarkFrames::Frame> BoxMarks::frames() const {
  std::vector<MarkFrames::Frame> frames = below_->frames();
  frames.insert(frames.end(), above_->frames().begin(), above_->frames().end());
  return frames;
}

void BoxMarks::draw() {
  std::vector<MarkFrames::Frame> below;
  std::vector<MarkFrames::Frame> above;
  below.reserve(order_.size());
  const std::string pointed = compare_ ? compare_->pointed().toStdString() : std::string{};
  auto* into = &below;
  for (const std::size_t i : order_) {
    into->push_back(frameOf(marks_[i], pointed));
    if (keyed_ && marks_[i].item == keyed_) into = &above;
  }
  above_->setFrames(std::move(above), below_);
  below_->setFrames(std::move(below), above_);
}

void BoxMarks::press(int id) {
  if (const Mark* mark = markOf(id); mark && compare_) {
    compare_->pressBox(QString::fromStdString(mark->view.finding));
  }
}

// What is held is all there is until it is let go.
bool BoxMarks::contains(const QPointF& point) const {
  if (const Mark* held = markOf(held_)) return held->place.contains(point);
  return at(point) != nullptr;
}

void BoxMarks::geometryChange(const QRectF& now, const QRectF& before) {
  PressArea::geometryChange(now, before);
  if (now.size() != before.size()) place();
}

void BoxMarks::itemChange(ItemChange change, const ItemChangeData& data) {
  PressArea::itemChange(change, data);
  const bool seen = change == ItemEnabledHasChanged || change == ItemVisibleHasChanged;
  if (seen && !data.boolValue) hover(nullptr);
}

void BoxMarks::mousePressEvent(QMouseEvent* event) {
  const Mark* mark = at(event->position());
  held_ = mark ? mark->id : 0;
  PressArea::mousePressEvent(event);
}

void BoxMarks::mouseReleaseEvent(QMouseEvent* event) {
  PressArea::mouseReleaseEvent(event);
  held_ = 0;
}

void BoxMarks::mouseUngrabEvent() {
  PressArea::mouseUngrabEvent();
  held_ = 0;
}

// Hovering is left unaccepted, as by every press area.
void BoxMarks::hoverEnterEvent(QHoverEvent* event) {
  hover(at(event->position()));
  event->ignore();
}

void BoxMarks::hoverMoveEvent(QHoverEvent* event) {
  hover(at(event->position()));
  event->ignore();
}

void BoxMarks::hoverLeaveEvent(QHoverEvent* event) {
  hover(nullptr);
  event->ignore();
}

// The pointer comes to the next before it leaves the one before.
void BoxMarks::hover(const Mark* mark) {
  const int id = mark ? mark->id : 0;
  if (std::exchange(hovered_, id) == id) return;
  const QString before =
      std::exchange(pointed_, mark ? QString::fromStdString(mark->view.finding) : QString{});
  if (mark && !mark->view.help.empty()) {
    HelpTip::show(this, QString::fromStdString(mark->view.help), mark->place);
  } else {
    HelpTip::hide(this);
  }
  if (compare_ && !pointed_.isEmpty()) compare_->point(pointed_, true);
  if (compare_ && !before.isEmpty()) compare_->point(before, false);
  draw();
}

void BoxMarks::follow(BoxMark* item) {
  const Mark* mark = markOf(item->id());
  if (!mark) return;
  item->setPosition(mark->place.topLeft());
  item->setSize(mark->place.size());
}

BoxMark* BoxMarks::itemOf(int id) {
  const auto found = places_.find(id);
  if (found == places_.end()) return nullptr;
  Mark& mark = marks_[found->second];
  if (mark.item) return mark.item;
  auto* item = mark.item = new BoxMark(id, *this);
  follow(item);
  connect(item, &PressArea::clicked, this, [this, id] { press(id); });
  connect(item, &QQuickItem::activeFocusChanged, this, [this, item] {
    if (item->hasActiveFocus()) emit markReached(item->id());
  });
  const auto ring = [this, item] {
    BoxMark* now = item->visualFocus() ? item : keyed_ == item ? nullptr : keyed_;
    if (std::exchange(keyed_, now) == now) return;
    draw();
    emit keyedChanged();
    if (now) emit sought(now);
  };
  connect(item, &PressArea::visualFocusChanged, this, ring);
  connect(item, &QObject::destroyed, this, [this, item] {
    if (keyed_ != item) return;
    keyed_ = nullptr;
    draw();
    emit keyedChanged();
  });
  stack();
  return item;
}

// Tab comes from before and from behind, in the order in which they stand.
void BoxMarks::stack() {
  QQuickItem* before = nullptr;
  for (const Mark& mark : marks_) {
    if (!mark.item) continue;
    if (before) mark.item->stackAfter(before);
    before = mark.item;
  }
}

bool BoxMarks::step(int from, int by, Qt::FocusReason reason) {
  const auto here = places_.find(from);
  if (here == places_.end()) return false;
  const auto next = static_cast<std::ptrdiff_t>(here->second) + by;
  if (next < 0 || next >= std::ssize(marks_)) return false;
  itemOf(marks_[static_cast<std::size_t>(next)].id)->forceActiveFocus(reason);
  return true;
}

// What a mark does not take is not for all of them.
void BoxMarks::keyPressEvent(QKeyEvent* event) { event->ignore(); }

}  // namespace vellix
