#include "pieces/LazyColumn.hpp"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <algorithm>
#include <utility>

namespace vellix {
namespace {

bool has(const QObject* item, const QByteArray& property) {
  return item->metaObject()->indexOfProperty(property.constData()) >= 0;
}

}  // namespace

LazyColumn::LazyColumn(QQuickItem* parent) : QQuickItem(parent) {
  near_.setSingleShot(true);
  near_.setInterval(0);
  connect(&near_, &QTimer::timeout, this, &LazyColumn::makeNear);
}

void LazyColumn::componentComplete() {
  QQuickItem::componentComplete();
  findView();
  using Model = QAbstractItemModel;
  model_ = qobject_cast<Model*>(told_.value<QObject*>());
  if (!model_) return;
  connect(model_, &Model::rowsInserted, this, [this](auto&, int a, int b) { insert(a, b); });
  connect(model_, &Model::rowsRemoved, this, [this](auto&, int a, int b) { remove(a, b); });
  connect(model_, &Model::rowsMoved, this,
          [this](auto&, int first, int last, auto&, int before) { move(first, last, before); });
  connect(model_, &Model::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
            change(first.row(), last.row(), roles);
          });
  if (model_->rowCount() > 0) insert(0, model_->rowCount() - 1);
  // At once, so that whoever is laid out by it finds its size.
  layOut();
}

void LazyColumn::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.width() != before.width()) heights_.doubtAll();
  if (now != before) polish();
}

void LazyColumn::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemVisibleHasChanged) polish();
  if (change != ItemSceneChange) return;
  if (data.window) {
    connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &LazyColumn::followKeyboard,
            Qt::UniqueConnection);
    // What is in this frame has its height.
    connect(data.window, &QQuickWindow::afterAnimating, this, [this] { heights_.settle(); });
  }
  if (isComponentComplete()) findView();
}

// What moves it within the view brings rows into sight as well.
void LazyColumn::findView() {
  if (view_) return;
  QQuickItem* each = this;
  while (each->parentItem() && !each->parentItem()->inherits("QQuickFlickable")) {
    each = each->parentItem();
  }
  view_ = each->parentItem();
  if (!view_) return;
  for (const QQuickItem* on = parentItem(); on && on != view_; on = on->parentItem()) {
    connect(on, &QQuickItem::yChanged, this, &LazyColumn::layOutSoon);
  }
  connect(view_, SIGNAL(movingChanged()), this, SLOT(layOutSoon()));
  connect(view_, &QQuickItem::heightChanged, this, &LazyColumn::layOutSoon);
  connect(view_, &QQuickItem::visibleChanged, this, &LazyColumn::layOutSoon);
}

QVariant LazyColumn::data(int row, const QString& role) const {
  const int number = role.isEmpty() ? -1 : model_->roleNames().key(role.toUtf8(), -1);
  return number < 0 ? QVariant{} : model_->data(model_->index(row, 0), number);
}

void LazyColumn::insert(int first, int last) {
  std::vector<int> kinds;
  for (int row = first; row <= last; ++row) kinds.push_back(data(row, alike_).toInt());
  heights_.insert(static_cast<std::size_t>(first), kinds);
  items_.insert(items_.begin() + first, kinds.size(), nullptr);
  number();
  for (int row = first; row <= last; ++row) {
    if (whole_ || data(row, always_).toBool()) make(row);
  }
  polish();
}

void LazyColumn::remove(int first, int last) {
  const std::vector<QQuickItem*> gone(items_.begin() + first, items_.begin() + last + 1);
  items_.erase(items_.begin() + first, items_.begin() + last + 1);
  heights_.remove(static_cast<std::size_t>(first), gone.size());
  if (items_.empty()) owed_ = 0;
  number();
  for (QQuickItem* item : gone) {
    if (!item) continue;
    emit itemRemoved(first, item);
    letGo(item);
  }
  polish();
}

void LazyColumn::move(int first, int last, int before) {
  const int count = last - first + 1;
  const int to = before > first ? before - count : before;
  const auto at = items_.begin();
  if (to > first) {
    std::rotate(at + first, at + last + 1, at + to + count);
  } else {
    std::rotate(at + to, at + first, at + last + 1);
  }
  heights_.move(static_cast<std::size_t>(first), static_cast<std::size_t>(count),
                static_cast<std::size_t>(to));
  number();
  for (int row = to; row < to + count; ++row) stack(row);
  polish();
}

void LazyColumn::change(int first, int last, const QList<int>& roles) {
  const auto names = model_->roleNames();
  for (int row = first; row <= last; ++row) {
    const QPointer<QQuickItem> item = itemOf(row);
    heights_.become(static_cast<std::size_t>(row), data(row, alike_).toInt());
    if (!item) heights_.forget(static_cast<std::size_t>(row));
    for (const int role : roles) {
      const QByteArray name = names[role];
      if (item && has(item, name)) {
        item->setProperty(name.constData(), model_->data(model_->index(row, 0), role));
      }
    }
    if (!item && data(row, always_).toBool()) make(row);
  }
  polish();
}

void LazyColumn::number() {
  keyed_ = -1;
  const auto* window = this->window();
  const QQuickItem* keyed = window ? window->activeFocusItem() : nullptr;
  for (int row = 0; row < count(); ++row) {
    QQuickItem* item = itemOf(row);
    if (!item) continue;
    if (has(item, "index")) item->setProperty("index", row);
    if (keyed && (item == keyed || item->isAncestorOf(keyed))) keyed_ = row;
  }
}

QQuickItem* LazyColumn::itemAt(int row) {
  if (row < 0 || row >= count()) return nullptr;
  if (!itemOf(row)) {
    make(row);
    layOut();
  }
  return itemOf(row);
}

void LazyColumn::make(int row) {
  if (making_ || itemOf(row)) return;
  making_ = true;
  auto* item = qobject_cast<QQuickItem*>(delegate_->beginCreate(delegate_->creationContext()));
  if (item) {
    QVariantMap values;
    const auto names = model_->roleNames();
    for (auto role = names.begin(); role != names.end(); ++role) {
      if (!has(item, role.value())) continue;
      values.insert(QString::fromUtf8(role.value()),
                    model_->data(model_->index(row, 0), role.key()));
    }
    if (has(item, "index")) values.insert(QStringLiteral("index"), row);
    item->setParent(this);
    itemOf(row) = item;
    item->setParentItem(this);
    stack(row);
    item->setY(heights_.y(static_cast<std::size_t>(row)) - owed_);
    heights_.begin(static_cast<std::size_t>(row));
    delegate_->setInitialProperties(item, values);
  }
  delegate_->completeCreate();
  making_ = false;
  if (item) connect(item, &QQuickItem::heightChanged, this, &QQuickItem::polish);
}

void LazyColumn::letGo(QQuickItem* item) {
  item->disconnect(this);
  item->setParentItem(nullptr);
  // It may be what just now tells that it wants to go.
  item->deleteLater();
}

// For a screen reader and for Tab: rows are made in whatever order.
void LazyColumn::stack(int row) {
  if (!itemOf(row)) return;
  for (int after = row + 1; after < count(); ++after) {
    if (itemOf(after)) return itemOf(row)->stackBefore(itemOf(after));
  }
  for (int before = row - 1; before >= 0; --before) {
    if (itemOf(before)) return itemOf(row)->stackAfter(itemOf(before));
  }
}

void LazyColumn::followKeyboard() {
  number();
  if (keyed_ < 0) return;
  for (const int row : {keyed_ - 1, keyed_ + 1}) {
    if (row >= 0 && row < count()) make(row);
  }
  polish();
}

}  // namespace vellix
