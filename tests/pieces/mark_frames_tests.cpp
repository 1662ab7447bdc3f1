// What the frames of many marks put on the screen, against items that draw one each.
#include "pieces/MarkFrames.hpp"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTest>
#include <cstdlib>

#include "pieces/MarkFrame.hpp"

namespace vellix {
namespace {

// Tells what it put into the scene.
class SeenFrames : public MarkFrames {
 public:
  using MarkFrames::MarkFrames;
  int updates = 0;
  int nodes = 0;  // below the item's own

 protected:
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override {
    ++updates;
    QSGNode* node = MarkFrames::updatePaintNode(old, data);
    nodes = node ? 1 + node->childCount() : 0;
    return node;
  }
};

// Places are added up in another order: one in 255, where the pixels are no logical ones.
bool alike(const QImage& one, const QImage& other) {
  if (one.size() != other.size()) return false;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QColor a = one.pixelColor(x, y);
      const QColor b = other.pixelColor(x, y);
      if (std::abs(a.red() - b.red()) > 1 || std::abs(a.green() - b.green()) > 1 ||
          std::abs(a.blue() - b.blue()) > 1) {
        return false;
      }
    }
  }
  return true;
}

class ManyMarkFrames : public testing::Test {
 protected:
  QQuickWindow window;
  QQuickItem holder;
  QQuickItem single;
  SeenFrames many;

  ManyMarkFrames() {
    window.resize(500, 400);
    window.setColor(QColor("#808890"));
    holder.setParentItem(window.contentItem());
    single.setParentItem(&holder);
    many.setParentItem(&holder);
    holder.setPosition({10.3, 7.7});
    window.show();
  }
  // By a GPU, a window that is only grabbed does not put single ones on its pixels.
  void SetUp() override {
    if (window.rendererInterface()->graphicsApi() != QSGRendererInterface::Software) GTEST_SKIP();
  }
  void TearDown() override {
    many.setParentItem(nullptr);
    single.setParentItem(nullptr);
    holder.setParentItem(nullptr);
  }
  static std::vector<MarkFrames::Frame> frames(int count) {
    std::vector<MarkFrames::Frame> all;
    for (int i = 0; i < count; ++i) {
      MarkFrames::Frame frame{.id = i + 1};
      const int line = i / 12;
      frame.place = {(i * 37.3) - 20 - 400 * line, 3 + 21.7 * (i % 17), 8 + 11.3 * (i % 9),
                     8 + 7.1 * (i % 5)};
      frame.look.color = i % 3 == 0 ? QColor("#e4572e") : QColor("#2e8b57");
      frame.look.line = i % 4 == 0 ? 2.4 : 1.6;
      frame.look.dash = i % 5 == 1 ? 4 : i % 5 == 2 ? 1.6 : 0;
      frame.fill = i % 6 == 0 ? 0.1 : 0;
      all.push_back(frame);
    }
    return all;
  }
  // By an item for each, in the same order.
  void showSingly(const std::vector<MarkFrames::Frame>& all) {
    for (const auto& frame : all) {
      auto* item = new MarkFrame;
      item->setParent(&single);
      item->setParentItem(&single);
      item->setPosition(frame.place.topLeft());
      item->setSize(frame.place.size());
      item->setProperty("color", frame.look.color);
      item->setProperty("line", frame.look.line);
      item->setProperty("dash", frame.look.dash);
      item->setProperty("fill", frame.fill);
    }
  }
  QImage shown(bool singly) {
    single.setVisible(singly);
    many.setVisible(!singly);
    return window.grabWindow();
  }
};

TEST_F(ManyMarkFrames, AreThePixelsOfASingleOneEach) {
  const auto all = frames(50);
  showSingly(all);
  many.setFrames(all);
  for (const QPointF at : {QPointF{10.3, 7.7}, {0, 0}, {-30.5, 12.25}}) {
    holder.setPosition(at);
    const QImage plain = shown(true);
    EXPECT_TRUE(alike(shown(false), plain)) << at.x() << ", " << at.y();
  }
  single.setVisible(false);
  many.setVisible(false);
  const QImage nothing = window.grabWindow();
  EXPECT_NE(shown(true), nothing);
}

TEST_F(ManyMarkFrames, KeepTheirOpacity) {
  const auto all = frames(20);
  showSingly(all);
  many.setFrames(all);
  holder.setOpacity(0.45);
  const QImage plain = shown(true);
  EXPECT_TRUE(alike(shown(false), plain));
}

TEST_F(ManyMarkFrames, AreCutOffByWhatClipsThem) {
  const auto all = frames(50);
  showSingly(all);
  many.setFrames(all);
  holder.setSize({200, 150});
  holder.setClip(true);
  const QImage plain = shown(true);
  EXPECT_TRUE(alike(shown(false), plain));
  // Nothing of them is left to see, though the window is painted anew.
  single.setX(300);
  many.setX(300);
  const QImage none = shown(true);
  EXPECT_NE(none, plain);
  EXPECT_TRUE(alike(shown(false), none));
}

TEST_F(ManyMarkFrames, ComeALittleLaterWhereThereAreMany) {
  const auto all = frames(400);
  showSingly(all);
  many.setFrames(all);
  const QImage plain = shown(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return alike(shown(false), plain); }));
}

TEST_F(ManyMarkFrames, AreOneNodeForTheSoftwareRenderer) {
  many.setFrames(frames(400));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown(false), many.nodes > 0; }));
  EXPECT_EQ(many.nodes, 1);
  many.setFrames({});
  shown(false);
  EXPECT_EQ(many.nodes, 0);
}

TEST_F(ManyMarkFrames, ShowChangesOfOneAtOnceAmongMany) {
  auto all = frames(400);
  many.setFrames(all);
  showSingly(all);
  const QImage plain = shown(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return alike(shown(false), plain); }));
  single.childItems()[7]->setProperty("line", 2.4);
  single.childItems()[7]->setProperty("color", QColor(Qt::black));
  all[7].look.line = 2.4;
  all[7].look.color = Qt::black;
  many.setFrames(all);
  const QImage changed = shown(true);
  ASSERT_NE(changed, plain);
  EXPECT_TRUE(alike(shown(false), changed)) << "in the very next frame";
}

TEST_F(ManyMarkFrames, BringTheirPixelsAlongToAnotherItem) {
  const auto all = frames(400);
  many.setFrames(all);
  showSingly(all);
  const QImage plain = shown(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return alike(shown(false), plain); }));
  MarkFrames other;
  other.setParentItem(&holder);
  other.setFrames({all.begin() + 100, all.end()}, &many);
  many.setFrames({all.begin(), all.begin() + 100});
  EXPECT_TRUE(alike(shown(false), plain)) << "in the very next frame";
}

TEST_F(ManyMarkFrames, AreNotDrawnAnewByWholePixels) {
  many.setFrames(frames(50));
  shown(false);
  const int before = many.updates;
  holder.setPosition({18.3, 11.7});
  shown(false);
  EXPECT_EQ(many.updates, before);
  holder.setPosition({18.6, 11.7});
  shown(false);
  EXPECT_GT(many.updates, before);
}

}  // namespace
}  // namespace vellix
