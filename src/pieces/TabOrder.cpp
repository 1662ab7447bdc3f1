#include "pieces/TabOrder.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace vellix {
namespace {

struct Row {
  int index;
  QQuickItem* item;
};

}  // namespace

void TabOrder::sortSoon() {
  if (std::exchange(asked_, true)) return;
  QMetaObject::invokeMethod(this, &TabOrder::sort, Qt::QueuedConnection);
}

void TabOrder::sort() {
  asked_ = false;
  if (!content_) return;
  std::vector<Row> rows;
  const auto children = content_->childItems();
  for (QQuickItem* child : children) {
    bool numbered = false;
    const int index = child->property("index").toInt(&numbered);
    if (numbered) rows.push_back({index, child});
  }
  if (std::ranges::is_sorted(rows, {}, &Row::index)) return;
  std::ranges::stable_sort(rows, {}, &Row::index);
  for (std::size_t i = 1; i < rows.size(); ++i) rows[i].item->stackAfter(rows[i - 1].item);
}

}  // namespace vellix
