// Which rows have their items, and where they stand.
#include <algorithm>
#include <cmath>
#include <utility>

#include "pieces/LazyColumn.hpp"

namespace vellix {
namespace {

// How far from what is in sight rows have their items, and from where on they lose them, in logical
// pixels: more than what the next key or turn of a wheel brings.
constexpr double kNear = 1'200;
constexpr double kFar = 2'000;

}  // namespace

bool LazyColumn::isKept(int row) {
  if (whole_ || row == 0 || row == count() - 1 || (keyed_ >= 0 && std::abs(row - keyed_) <= 1))
    return true;
  const QQuickItem* item = itemOf(row);
  return item && (item->property("stays").toBool() || data(row, always_).toBool());
}

std::optional<int> LazyColumn::missing(double around) {
  const Sight sight = this->sight();
  const auto [first, end] = heights_.within(sight.top - around, sight.bottom + around);
  for (auto row = static_cast<int>(first); row < static_cast<int>(end); ++row) {
    if (!itemOf(row)) return row;
  }
  return std::nullopt;
}

std::optional<int> LazyColumn::missingNear() {
  if (view_ && !view_->isVisible()) return std::nullopt;
  // What is folded away may be opened.
  if (const auto row = missing(isVisible() ? kNear : 0)) return row;
  for (const int row : {0, count() - 1, keyed_ - 1, keyed_ + 1}) {
    if (row >= 0 && row < count() && !itemOf(row)) return row;
  }
  return std::nullopt;
}

// What is made above moves the view, which a hand on it would not have.
void LazyColumn::makeNear() {
  if (view_ && view_->property("moving").toBool()) return;
  const auto row = missingNear();
  if (!row) return;
  make(*row);
  polish();
}

void LazyColumn::letGoFar() {
  if (!view_ || !isVisible()) return;
  const Sight sight = this->sight();
  const auto [first, end] = heights_.within(sight.top - kFar, sight.bottom + kFar);
  for (int row = 0; row < count(); ++row) {
    const bool isFar = row < static_cast<int>(first) || row >= static_cast<int>(end);
    if (isFar && itemOf(row) && !isKept(row)) letGo(std::exchange(itemOf(row), nullptr));
  }
}

LazyColumn::Sight LazyColumn::sight() const {
  if (!view_) return {.top = 0, .bottom = heights_.total() + 1};
  const double top = owed_ - mapToItem(view_, {0, 0}).y();
  return {.top = top, .bottom = top + view_->height()};
}

void LazyColumn::layOut() {
  for (int row = 0; row < count(); ++row) {
    if (itemOf(row)) heights_.measure(static_cast<std::size_t>(row), itemOf(row)->height());
  }
  const Sight sight = this->sight();
  const double at = view_ ? view_->property("contentY").toDouble() : 0;
  // Who has gone to the end stays there.
  const bool atEnd =
      at > 0 && at + view_->height() > view_->property("contentHeight").toDouble() - 1;
  const auto misjudged = heights_.layOut(sight.top, spacing_);
  owed_ += misjudged.above + (atEnd ? misjudged.below : 0);
  const double top = view_ ? -mapToItem(view_, {0, 0}).y() : 0;
  const bool among = view_ && !atEnd && top >= std::max(0.0, -owed_) &&
                     top + view_->height() <= heights_.total() - std::max(0.0, owed_);
  double to = at;
  if (!view_ || !isVisible()) {
    owed_ = 0;
  } else if (!among) {
    // At its beginning it stays there.
    const double owed = std::exchange(owed_, 0);
    if (at > 0) to = std::max(0.0, at + owed);
  } else if (!view_->property("moving").toBool()) {
    // To be put somewhere else would stop what moves under the wheel, and whole pixels are what the
    // view comes to rest at.
    to = std::round(at + owed_);
    owed_ -= to - at;
  }
  for (int row = 0; row < count(); ++row) {
    if (itemOf(row)) itemOf(row)->setY(heights_.y(static_cast<std::size_t>(row)) - owed_);
  }
  setImplicitHeight(heights_.total());
  if (to == at) return;
  // What is around the rows takes its place first: it may see to what is in sight itself.
  for (QQuickItem* on = parentItem(); on && on != view_; on = on->parentItem())
    on->ensurePolished();
  const double now = view_->property("contentY").toDouble();
  // It may have kept itself within what has become shorter.
  if (std::abs(now - at) < 1 || (to + 1 < now && now < at)) view_->setProperty("contentY", to);
}

void LazyColumn::updatePolish() {
  // Who makes a row lays out once it is whole.
  if (!isComponentComplete() || making_) return;
  layOut();
  while (isVisible()) {
    const auto row = missing(0);
    if (!row) break;
    make(*row);
    if (!itemOf(*row)) break;
    layOut();
  }
  letGoFar();
  if (missingNear()) near_.start();
}

}  // namespace vellix
