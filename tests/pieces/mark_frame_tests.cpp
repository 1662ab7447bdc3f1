// What a mark's frame puts on the screen.
#include "pieces/MarkFrame.hpp"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <cmath>
#include <limits>

namespace vellix {
namespace {

// A frame that tells how often it was drawn.
class SeenFrame : public MarkFrame {
 public:
  int updates = 0;

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override {
    ++updates;
    return MarkFrame::updatePaintNode(old, data);
  }
};

class MarkFrames : public testing::Test {
 protected:
  QQuickWindow window;
  QQuickItem holder;
  SeenFrame frame;

  MarkFrames() {
    window.resize(400, 300);
    window.setColor(Qt::black);
    holder.setParentItem(window.contentItem());
    frame.setParentItem(&holder);
    frame.setProperty("color", QColor(Qt::red));
    place({40, 30, 200, 160});
    window.show();
  }
  void TearDown() override {
    frame.setParentItem(nullptr);
    holder.setParentItem(nullptr);
  }
  void place(QRectF rect) {
    frame.setPosition(rect.topLeft());
    frame.setSize(rect.size());
  }
  // The colour at a place of the window, in logical pixels.
  QColor at(qreal x, qreal y) {
    const QImage image = window.grabWindow();
    const qreal scale = window.effectiveDevicePixelRatio();
    return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
  }
  static bool isRed(const QColor& colour) {
    return colour.red() > 200 && colour.green() < 90 && colour.blue() < 90;
  }
  static bool isLight(const QColor& colour) { return colour.green() > 100 && colour.blue() > 100; }
};

TEST_F(MarkFrames, DrawTheirLineAlongTheEdge) {
  frame.setProperty("line", 4.0);
  frame.setProperty("halo", 0.0);
  for (const QPointF spot : {QPointF{140, 30}, {140, 190}, {40, 110}, {240, 110}}) {
    EXPECT_TRUE(isRed(at(spot.x(), spot.y()))) << spot.x() << ", " << spot.y();
  }
  EXPECT_EQ(at(140, 110), QColor(Qt::black)) << "the middle is open";
  EXPECT_EQ(at(140, 35), QColor(Qt::black));
  EXPECT_EQ(at(140, 26), QColor(Qt::black));
}

TEST_F(MarkFrames, LieOnALighterLine) {
  frame.setProperty("line", 2.0);
  frame.setProperty("halo", 8.0);
  EXPECT_TRUE(isRed(at(140, 30)));
  EXPECT_TRUE(isLight(at(140, 27)));
  EXPECT_TRUE(isLight(at(140, 32.5)));
  EXPECT_EQ(at(140, 36), QColor(Qt::black));
}

TEST_F(MarkFrames, ShowTheLighterLineBetweenTheirDashes) {
  frame.setProperty("line", 4.0);
  frame.setProperty("halo", 4.0);
  frame.setProperty("dash", 10.0);
  int red = 0;
  int light = 0;
  for (qreal x = 60; x < 220; x += 2) {
    const QColor colour = at(x, 30);
    red += isRed(colour);
    light += isLight(colour);
  }
  EXPECT_GT(red, 25) << "of 80, about half";
  EXPECT_GT(light, 25);
}

struct Edge {
  const char* name;
  QSizeF size;
  qreal dash;
};
void PrintTo(const Edge& edge, std::ostream* out) { *out << edge.name; }

class DashedEdges : public MarkFrames, public testing::WithParamInterface<Edge> {};

// A way around that is divided evenly looks the same from the other side; a square's from each.
TEST_P(DashedEdges, AreDividedEvenly) {
  const auto [name, size, dash] = GetParam();
  frame.setProperty("line", 1.6);
  frame.setProperty("halo", 0.0);
  frame.setProperty("dash", dash);
  place({QPointF{40, 40}, size});
  const qreal scale = window.effectiveDevicePixelRatio();
  const QRectF around{QPointF{36, 36} * scale, (size + QSizeF{8, 8}) * scale};
  const QImage image = window.grabWindow().copy(around.toRect());
  int drawn = 0;
  int apart = 0;
  const auto compare = [&](int turns) {
    const QImage turned = image.transformed(QTransform().rotate(90.0 * turns));
    ASSERT_EQ(turned.size(), image.size());
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const int red = image.pixelColor(x, y).red();
        drawn += red > 60;
        apart = std::max(apart, std::abs(red - turned.pixelColor(x, y).red()));
      }
    }
  };
  compare(2);
  if (size.width() == size.height()) compare(1);
  EXPECT_GT(drawn, 10);
  EXPECT_LT(apart, 40);
}

INSTANTIATE_TEST_SUITE_P(All, DashedEdges,
                         testing::Values(Edge{"Small", {8, 8}, 4}, Edge{"SmallDotted", {8, 8}, 1.6},
                                         Edge{"Larger", {20, 20}, 4}, Edge{"Flat", {24, 8}, 4},
                                         Edge{"OfADraft", {60, 32}, 6},
                                         Edge{"Large", {200, 160}, 4}),
                         [](const auto& each) { return each.param.name; });

TEST_F(MarkFrames, FillTheirInside) {
  frame.setProperty("fill", 0.5);
  const QColor inside = at(140, 110);
  EXPECT_NEAR(inside.red(), 128, 3);
  EXPECT_EQ(inside.green(), 0);
  frame.setProperty("fill", 0.0);
  EXPECT_EQ(at(140, 110), QColor(Qt::black));
}

TEST_F(MarkFrames, TakeAnotherColour) {
  frame.setProperty("line", 4.0);
  frame.setProperty("color", QColor(Qt::blue));
  EXPECT_GT(at(140, 30).blue(), 200);
  EXPECT_LT(at(140, 30).red(), 90);
}

TEST_F(MarkFrames, FollowTheirPlaceToAPartOfAPixel) {
  frame.setProperty("line", 4.0);
  frame.setProperty("halo", 0.0);
  for (const qreal off : {0.0, 0.25, 0.5, 0.75, 13.4}) {
    holder.setPosition({off, off});
    const QImage image = window.grabWindow();
    const qreal scale = window.effectiveDevicePixelRatio();
    // The middle of the upper line, by weight.
    qreal sum = 0;
    qreal weight = 0;
    for (int y = static_cast<int>((24 + off) * scale); y < (38 + off) * scale; ++y) {
      const qreal red = image.pixelColor(static_cast<int>(140 * scale), y).redF();
      sum += red * (y + 0.5);
      weight += red;
    }
    ASSERT_GT(weight, 0);
    EXPECT_NEAR(sum / weight / scale, 30 + off, 0.1) << off;
  }
}

TEST_F(MarkFrames, AreDrawnAnewOnlyWhereTheyLieElsewhereBetweenThePixels) {
  window.grabWindow();
  const int before = frame.updates;
  holder.setPosition({8, 4});
  window.grabWindow();
  EXPECT_EQ(frame.updates, before) << "whole pixels at every scale";
  holder.setPosition({8.3, 4});
  window.grabWindow();
  EXPECT_EQ(frame.updates, before + 1);
}

TEST_F(MarkFrames, AreNotDrawnAnewWhileAParentIsScaled) {
  window.grabWindow();
  const int before = frame.updates;
  for (const qreal scale : {0.9, 0.97, 1.013, 1.2, 1.0}) {
    holder.setScale(scale);
    window.grabWindow();
    EXPECT_EQ(frame.updates, before) << scale;
  }
}

TEST_F(MarkFrames, AreWholeHoweverSmall) {
  frame.setProperty("line", 2.0);
  for (const qreal side : {1.0, 4.0, 8.0, 12.0, 20.0}) {
    place({100, 100, side, side});
    int red = 0;
    for (qreal y = 95; y < 125; y += 0.5) {
      const QColor colour = at(100 + side / 2, y);
      red += colour.red() - colour.green() > 80;
    }
    EXPECT_GE(red, 1) << side;
  }
}

TEST_F(MarkFrames, DrawWhatIsInSightOfALargeOne) {
  frame.setProperty("line", 4.0);
  frame.setProperty("halo", 0.0);
  place({-5'000, 30, 5'100, 40'000});
  EXPECT_TRUE(isRed(at(50, 30)));
  EXPECT_TRUE(isRed(at(100, 200)));
}

TEST_F(MarkFrames, DrawNothingOfWhatIsNoSize) {
  for (const QSizeF size : {QSizeF{0, 50},
                            {50, 0},
                            {-4, 50},
                            {std::numeric_limits<qreal>::quiet_NaN(), 50},
                            {std::numeric_limits<qreal>::infinity(), 50}}) {
    frame.setSize(size);
    EXPECT_EQ(at(140, 30), QColor(Qt::black));
  }
  place({40, 30, 200, 160});
  EXPECT_NE(at(140, 30), QColor(Qt::black)) << "and comes back";
}

}  // namespace
}  // namespace vellix
