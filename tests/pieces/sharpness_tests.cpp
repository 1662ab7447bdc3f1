// Small drawings have as many pixels as the device shows, and lie on them.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

#include "pieces/Symbol.hpp"

namespace vellix {
namespace {

// A symbol that tells what it handed to the renderer.
class SeenSymbol : public Symbol {
 public:
  QRectF rect;   // in the item's coordinates
  QSize pixels;  // of the texture
  int updates = 0;

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override {
    QSGNode* node = Symbol::updatePaintNode(old, data);
    ++updates;
    if (const auto* image = node ? dynamic_cast<QSGImageNode*>(node->firstChild()) : nullptr) {
      rect = image->rect();
      pixels = image->texture()->textureSize();
    }
    return node;
  }
};

class Sharpness : public testing::Test {
 protected:
  QQuickWindow window;
  QQuickItem holder;
  SeenSymbol symbol;

  Sharpness() {
    window.resize(200, 200);
    holder.setParentItem(window.contentItem());
    symbol.setParentItem(&holder);
    symbol.setName(QStringLiteral("checkmark.circle"));
    window.show();
    window.grabWindow();
  }
  void TearDown() override {
    symbol.setParentItem(nullptr);
    holder.setParentItem(nullptr);
  }

  qreal scale() const { return window.effectiveDevicePixelRatio(); }

  void isSharp() {
    window.grabWindow();
    ASSERT_FALSE(symbol.pixels.isEmpty());
    const QRectF onDevice(symbol.mapToScene(symbol.rect.topLeft()) * scale(),
                          symbol.rect.size() * scale());
    const QString where = QStringLiteral("%1,%2 %3x%4 of %5x%6 pixels")
                              .arg(onDevice.x())
                              .arg(onDevice.y())
                              .arg(onDevice.width())
                              .arg(onDevice.height())
                              .arg(symbol.pixels.width())
                              .arg(symbol.pixels.height());
    const auto whole = [](qreal at) { return std::abs(at - std::round(at)) < 1e-6; };
    EXPECT_TRUE(whole(onDevice.x()) && whole(onDevice.y())) << where.toStdString();
    EXPECT_NEAR(onDevice.width(), symbol.pixels.width(), 1e-6);
    EXPECT_NEAR(onDevice.height(), symbol.pixels.height(), 1e-6);
  }
};

TEST_F(Sharpness, HoldsForEverySizeAndPlace) {
  for (const qreal size : {9.5, 10.5, 11.5, 12.0, 14.0, 16.0, 33.0}) {
    for (const qreal at : {0.0, 7.0, 10.25, 20.5, 31.9}) {
      symbol.setSize(size);
      symbol.setPosition({at, at / 3});
      isSharp();
      // The field around a round symbol is 256 to its 208.
      const int expected = static_cast<int>(std::ceil(size * 256 / 208 * scale() - 0.01));
      EXPECT_EQ(symbol.pixels, QSize(expected, expected)) << size;
    }
  }
}

TEST_F(Sharpness, HoldsWhenAParentMoves) {
  symbol.setPosition({10, 10});
  isSharp();
  for (const qreal at : {0.3, 1.0, 2.5, 3.7, 100.1}) {
    holder.setPosition({at, -at / 7});
    isSharp();
  }
}

TEST_F(Sharpness, PaintsNothingAnewForAMoveByWholePixels) {
  symbol.setPosition({10, 10});
  isSharp();
  const int before = symbol.updates;
  holder.setPosition({8, 4});
  isSharp();
  EXPECT_EQ(symbol.updates, before);
}

TEST_F(Sharpness, DoesNotWobbleWhileItTurns) {
  symbol.setPosition({10, 10});
  isSharp();
  const QRectF before = symbol.rect;
  for (const qreal turn : {15.0, 70.0, 200.0}) {
    symbol.setRotation(turn);
    window.grabWindow();
    EXPECT_EQ(symbol.rect, before);
  }
}

}  // namespace
}  // namespace vellix
