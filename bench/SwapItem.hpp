// The least that shows one picture after another.
#pragma once

#include <QImage>
#include <QQuickItem>

namespace vellix::bench {

class SwapItem : public QQuickItem {
 public:
  explicit SwapItem(QQuickItem* parent);
  void show(QImage image);

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QImage image_;
};

}  // namespace vellix::bench
