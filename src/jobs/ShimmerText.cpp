#include "jobs/ShimmerText.hpp"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

#include "jobs/shimmer.hpp"

namespace vellix {

void ShimmerText::measure() {
  const QFontMetricsF metrics(font_);
  setImplicitSize(std::ceil(metrics.horizontalAdvance(text_)), std::ceil(metrics.height()));
}

void ShimmerText::updatePolish() {
  image_ = {};
  if (window() && width() > 0 && height() > 0) {
    const qreal scale = deviceScale();
    image_ = QImage(QSize(static_cast<int>(std::ceil(width() * scale)),
                          static_cast<int>(std::ceil(height() * scale))),
                    QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(scale);
    image_.fill(Qt::transparent);
    const auto [left, right] = shimmerBand(phase_, width());
    QLinearGradient light(left, 0, right, 0);
    light.setColorAt(0, color_);
    light.setColorAt(0.5, light_);
    light.setColorAt(1, color_);
    const QFontMetricsF metrics(font_);
    QPainter painter(&image_);
    painter.setFont(font_);
    painter.setPen(QPen(light, 1));
    painter.drawText(QPointF(0, std::round((height() - metrics.height()) / 2 + metrics.ascent())),
                     metrics.elidedText(text_, Qt::ElideRight, width()));
  }
  update();
}

QSGNode* ShimmerText::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<QSGImageNode*>(old);
  if (image_.isNull()) {
    delete node;
    return nullptr;
  }
  if (!node) {
    node = window()->createImageNode();
    node->setOwnsTexture(true);
    node->setFiltering(QSGTexture::Linear);
  }
  node->setTexture(window()->createTextureFromImage(image_));
  node->setRect(QRectF(onGrid({}), image_.deviceIndependentSize()));
  return node;
}

}  // namespace vellix
