// The canvas to the pixel: what is overlaid, how pages differ, and where marks lie.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr QColor kOne{200, 40, 100};
constexpr QColor kOther{100, 140, 20};

class CanvasLooks : public ViewTest {
 protected:
  CanvasLooks() {
    pictures.known["supplier-0"] = plain(kOne);
    pictures.known["submitted-0"] = plain(kOther);
    serveTheDay();
    store().prefs.showNotes.set(false);
    store().prefs.openLoupe.set(false);
    store().prefs.showPageStrip.set(false);  // its pictures go by the same keys
    showMain({1'400, 900});
    theme()->setReducedMotion(true);  // what is looked at is what comes to rest
    rest();
  }
  static QImage plain(QColor colour) {
    QImage image{300, 400, QImage::Format_RGB32};
    image.fill(colour);
    return image;
  }
  // Until nothing moves any more and every picture is here.
  void rest() {
    for (int i = 0; i < 4; ++i) {
      settle();
      QTest::qWait(10);
    }
    const bool stands = QTest::qWaitFor([this] { return !moves(); }, 5'000);
    EXPECT_TRUE(stands);
    settle();
  }
  // Whether the window looks otherwise some frames later: what glides, and what fades.
  bool moves() {
    const QImage before = window()->grabWindow();
    QTest::qWait(120);
    settle();
    return before != window()->grabWindow();
  }
  QQuickItem* picture(const QString& key) {
    for (QQuickItem* each : seen(window()->contentItem(), "RemoteImage")) {
      if (each->property("key").toString() == key) return each;
    }
    return nullptr;
  }
  // Where a page lies in the window.
  QRectF page(const QString& key) {
    QQuickItem* item = picture(key);
    return item ? item->mapRectToScene(item->boundingRect()) : QRectF{};
  }
  QColor at(QPointF spot) {
    settle();
    const QImage image = window()->grabWindow();
    const qreal scale = window()->effectiveDevicePixelRatio();
    return image.pixelColor((spot * scale).toPoint());
  }
  QColor at(const QString& key, qreal fx, qreal fy) {
    const QRectF rect = page(key);
    return at({rect.x() + fx * rect.width(), rect.y() + fy * rect.height()});
  }
  static void expectColour(const QColor& is, const QColor& wanted, int within = 2) {
    EXPECT_NEAR(is.red(), wanted.red(), within);
    EXPECT_NEAR(is.green(), wanted.green(), within);
    EXPECT_NEAR(is.blue(), wanted.blue(), within);
  }
  void overlay(double opacity, bool difference = false) {
    store().mode.set(CompareMode::overlay);
    settle();
    auto* compare = models()["compare"].value<CompareModel*>();
    compare->setOpacity(opacity);
    compare->setDifference(difference);
    rest();
  }
};

TEST_F(CanvasLooks, SideBySideShowsEachPageAsItIs) {
  expectColour(at("supplier-0", 0.8, 0.8), kOne);
  expectColour(at("submitted-0", 0.8, 0.8), kOther);
}

TEST_F(CanvasLooks, OverlayMixesByTheOpacity) {
  overlay(0.5);
  expectColour(at("supplier-0", 0.8, 0.8), {150, 90, 60});
  overlay(0);
  expectColour(at("supplier-0", 0.8, 0.8), kOne);
  overlay(1);
  expectColour(at("supplier-0", 0.8, 0.8), kOther);
  overlay(0.25);
  expectColour(at("supplier-0", 0.8, 0.8), {175, 65, 80});
}

TEST_F(CanvasLooks, DifferenceIsThatOfEachChannelWhateverTheOpacity) {
  for (const double opacity : {0.0, 0.5, 1.0}) {
    overlay(opacity, true);
    expectColour(at("supplier-0", 0.8, 0.8), {100, 100, 80}, 0);
  }
}

TEST_F(CanvasLooks, EqualPagesDifferByNothing) {
  pictures.known["submitted-1"] = plain(kOne);
  pictures.known["supplier-1"] = plain(kOne);
  overlay(0.5, true);
  auto* compare = models()["compare"].value<CompareModel*>();
  compare->stepPage(1);
  rest();
  for (const double zoom : {1.0, 2.0, 4.0}) {
    store().zoom.set(zoom);
    rest();
    QQuickItem* canvas = seen(window()->contentItem(), "CompareCanvas").front();
    const QRectF rect = page("supplier-1")
                            .intersected(canvas->mapRectToScene(
                                {0, 0, canvas->width(),
                                 canvas->height() - canvas->property("barHeight").toReal()}));
    for (const double part : {0.1, 0.5, 0.9}) {
      expectColour(at({rect.x() + part * rect.width(), rect.y() + part * rect.height()}), Qt::black,
                   0);
    }
  }
}

TEST_F(CanvasLooks, PagesOfOtherPixelSizesRegister) {
  // Left half dark, right half light, once at three times the pixels.
  const auto halves = [](QSize size) {
    QImage image{size, QImage::Format_RGB32};
    image.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
      for (int x = size.width() / 2; x < size.width(); ++x) image.setPixel(x, y, 0xffffffff);
    }
    return image;
  };
  pictures.known["supplier-1"] = halves({900, 1'200});
  pictures.known["submitted-1"] = halves({300, 400});
  overlay(0.5, true);
  models()["compare"].value<CompareModel*>()->stepPage(1);
  rest();
  for (const double x : {0.1, 0.4, 0.48, 0.52, 0.6, 0.9}) {
    expectColour(at("supplier-1", x, 0.5), Qt::black, 6);
  }
}

// Place on place: the same fractions of both pages lie on each other, mixed and by their
// difference.
TEST_F(CanvasLooks, APageOfAnotherShapeLiesExactlyOverTheFirst) {
  const auto halves = [](QSize size) {
    QImage image{size, QImage::Format_RGB32};
    image.fill(Qt::black);
    for (int y = size.height() / 2; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, 0xffffffff);
    }
    return image;
  };
  pictures.known["supplier-1"] = halves({300, 400});
  for (const QSize shape : {QSize{400, 300}, QSize{150, 400}}) {
    pictures.known["submitted-1"] = halves(shape);
    for (const bool difference : {false, true}) {
      store().mode.set(CompareMode::side);
      models()["compare"].value<CompareModel*>()->stepPage(-1);
      rest();
      overlay(1, difference);
      models()["compare"].value<CompareModel*>()->stepPage(1);
      rest();
      for (const double x : {0.03, 0.5, 0.97}) {
        expectColour(at("supplier-1", x, 0.03), Qt::black, 6);
        expectColour(at("supplier-1", x, 0.45), Qt::black, 6);
        expectColour(at("supplier-1", x, 0.97), difference ? Qt::black : Qt::white, 6);
      }
    }
  }
}

TEST_F(CanvasLooks, MarksLieOnTheirPlaceAtEveryZoom) {
  pictures.known["supplier-0"] = plain(Qt::white);
  store().shown.set({"supplier"});
  FileDetail detail = lighthouse();
  detail.findings = {findingOf("f1")};
  detail.findings[0].kind = "barcode";  // needs no reference to stay
  detail.findings[0].box = {0.37, 0.41, 0.2, 0.1};
  store().details.set({{"t1", detail}});
  models()["compare"].value<CompareModel*>()->stepPage(0);
  const auto off = [this](QPointF line, QPointF along) {
    const QImage image = window()->grabWindow();
    const qreal scale = window()->effectiveDevicePixelRatio();
    qreal sum = 0;
    qreal weight = 0;
    for (qreal d = -6; d <= 6; d += 1 / scale) {
      const QPoint pixel{static_cast<int>(std::floor((line.x() + d * along.x()) * scale)),
                         static_cast<int>(std::floor((line.y() + d * along.y()) * scale))};
      const QColor colour = image.pixelColor(pixel);
      const qreal strength = 1 - colour.blueF();
      const QPointF centre = (QPointF(pixel) + QPointF{0.5, 0.5}) / scale;
      sum += strength * QPointF::dotProduct(centre - line, along);
      weight += strength;
    }
    return weight > 0.3 ? sum / weight : 99.0;
  };
  int looked = 0;
  for (const double zoom : {1.0, 1.25, 2.0, 3.25, 4.0}) {
    store().zoom.set(zoom);
    rest();
    const QRectF rect = page("supplier-0");
    const QPointF corner{rect.x() + 0.37 * rect.width() - 3, rect.y() + 0.41 * rect.height() - 3};
    const QRectF seen{300, 260, 1'000, 400};
    if (!seen.contains(corner)) continue;
    ++looked;
    EXPECT_NEAR(off(corner + QPointF{30, 0}, {0, 1}), 0, 0.6) << "above, at " << zoom;
    EXPECT_NEAR(off(corner + QPointF{0, 20}, {1, 0}), 0, 0.6) << "beside, at " << zoom;
  }
  EXPECT_GE(looked, 4);
}

TEST_F(CanvasLooks, PinsAndDraftsStandOnTheirPlace) {
  pictures.known["supplier-0"] = plain(Qt::white);
  FileDetail detail = lighthouse();
  detail.findings.clear();
  Note pin;
  pin.id = "n1";
  pin.page = 0;
  pin.x = 0.5;
  pin.y = 0.25;
  pin.by = "renny@tessarine.example";
  Note area = pin;
  area.id = "n2";
  area.y = 0.5;
  area.w = 0.25;
  area.h = 0.125;
  detail.comments = {pin, area};
  store().details.set({{"t1", detail}});
  store().draft.set(DraftNote{.fileID = "t1", .page = 0, .side = "supplier", .x = 0.25, .y = 0.75});
  rest();
  const QRectF rect = page("supplier-0");
  const auto place = [&](double x, double y) {
    return QPointF{rect.x() + x * rect.width(), rect.y() + y * rect.height()};
  };
  const auto centre = [](const QQuickItem* item) {
    return item->mapRectToScene(item->boundingRect()).center();
  };
  const auto pins = seen(window()->contentItem(), "NotePin");
  // The supplier's own notes stand on the supplier's pane alone.
  ASSERT_EQ(pins.size(), 2);
  EXPECT_LT((centre(pins[0]) - place(0.5, 0.25)).manhattanLength(), 0.01);
  EXPECT_EQ(pins[0]->size(), QSizeF(22, 22));
  EXPECT_LT((centre(pins[1]) - place(0.5, 0.5)).manhattanLength(), 0.01) << "at the area's corner";
  const auto drafts = seen(window()->contentItem(), "DraftOutline");
  ASSERT_EQ(drafts.size(), 1);
  EXPECT_LT((centre(drafts[0]) - place(0.25, 0.75)).manhattanLength(), 0.01);
  EXPECT_EQ(drafts[0]->size(), QSizeF(18, 18));
  const auto marks = seen(window()->contentItem(), "NoteMark");
  const QRectF box = marks[1]->mapRectToScene(marks[1]->boundingRect());
  EXPECT_NEAR(box.width(), 0.25 * rect.width(), 0.01);
  EXPECT_NEAR(box.bottom(), place(0, 0.625).y(), 0.01);
}

TEST_F(CanvasLooks, ACropShowsItsPartOfThePageAndMarksIt) {
  // The lower right quarter is dark.
  QImage image = plain(Qt::white);
  for (int y = 200; y < 400; ++y) {
    for (int x = 150; x < 300; ++x) image.setPixel(x, y, 0xff202020);
  }
  pictures.known["supplier-0"] = image;
  pictures.known["submitted-0"] = plain(Qt::white);
  FileDetail detail = lighthouse();
  detail.findings = {findingOf("f1")};
  detail.findings[0].box = {0.45, 0.45, 0.1, 0.1};
  store().details.set({{"t1", detail}});
  store().prefs.openLoupe.set(true);
  store().focus.set("f1");
  rest();
  const auto crops = seen(window()->contentItem(), "Crop");
  ASSERT_EQ(crops.size(), 2);
  const auto lay = crops[0]->property("lay").toMap();
  const QRectF frame = lay["frame"].toRectF();
  const auto at1 = [&](double fx, double fy) {
    return at(
        crops[0]->mapToScene({frame.x() + fx * frame.width(), frame.y() + fy * frame.height()}));
  };
  // The page's middle is the crop's.
  expectColour(at1(0.9, 0.9), {0x20, 0x20, 0x20}, 8);
  expectColour(at1(0.1, 0.9), Qt::white, 8);
  expectColour(at1(0.9, 0.1), Qt::white, 8);
  const QRectF mark = lay["marks"].toList().at(0).toRectF();
  int least = 255;
  for (const double off : {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0, 1.5}) {
    const QPointF spot{frame.x() + mark.x() + off, frame.y() + mark.y() + 20};
    least = std::min(least, at(crops[0]->mapToScene(spot)).blue());
  }
  EXPECT_LT(least, 110) << "the accent's";
}

TEST_F(CanvasLooks, APassedCheckIsDashedAndAnOpenFindingIsNot) {
  FileDetail detail = lighthouse();
  detail.findings = {findingOf("f1"), findingOf("f2")};
  detail.findings[0].box = {0.1, 0.1, 0.8, 0.1};
  detail.findings[1].box = {0.1, 0.5, 0.8, 0.1};
  detail.findings[1].kind = "pass";
  store().details.set({{"t1", detail}});
  rest();
  // How often the colour changes along the line, in that of the rows of pixels around it where it
  // does most.
  const auto changes = [this](double y) {
    const QRectF rect = page("supplier-0");
    const QImage image = window()->grabWindow();
    const qreal scale = window()->effectiveDevicePixelRatio();
    int most = 0;
    for (const double off : {-4.0, -3.5, -3.0, -2.5, -2.0}) {
      int count = 0;
      QColor last;
      for (double x = 0.2; x < 0.8; x += 2 / rect.width()) {
        const QPointF spot{rect.x() + x * rect.width(), rect.y() + y * rect.height() + off};
        const QColor colour = image.pixelColor((spot * scale).toPoint());
        count += last.isValid() && std::abs(colour.green() - last.green()) > 40;
        last = colour;
      }
      most = std::max(most, count);
    }
    return most;
  };
  EXPECT_EQ(changes(0.1), 0);
  EXPECT_GT(changes(0.5), 8);
}

TEST_F(CanvasLooks, WhatReachesBeyondThePageIsCutOff) {
  FileDetail detail = lighthouse();
  detail.findings = {findingOf("f1")};
  detail.findings[0].box = {0.5, 0.5, 40, 40};
  store().details.set({{"t1", detail}});
  rest();
  const QRectF rect = page("supplier-0");
  int least = 255;  // of blue, across the line
  for (const double off : {-4.5, -4.0, -3.5, -3.0, -2.5, -2.0, -1.5}) {
    const QPointF spot{rect.x() + 0.7 * rect.width(), rect.y() + 0.5 * rect.height() + off};
    least = std::min(least, at(spot).blue());
  }
  EXPECT_LT(least, 110);
  const QColor next = at({page("submitted-0").x() + 30, rect.y() + 0.5 * rect.height() - 3});
  expectColour(next, kOther);
}

TEST_F(CanvasLooks, ADrawnDragIsSeenWhileItIsDrawnAndThenStands) {
  const QRectF rect = page("supplier-0");
  const QPoint from =
      QPointF{rect.x() + 0.5 * rect.width(), rect.y() + 0.5 * rect.height()}.toPoint();
  const QPoint to =
      QPointF{rect.x() + 0.75 * rect.width(), rect.y() + 0.75 * rect.height()}.toPoint();
  QTest::mousePress(window(), Qt::LeftButton, {}, from);
  QTest::mouseMove(window(), from + QPoint{20, 20});
  QTest::mouseMove(window(), to);
  settle();
  const QPointF inside{(from.x() + to.x()) / 2.0, (from.y() + to.y()) / 2.0};
  const QColor tinted = at(inside);
  EXPECT_NE(tinted, kOne) << "filled a little with the accent";
  EXPECT_FALSE(store().draft());
  QTest::mouseRelease(window(), Qt::LeftButton, {}, to);
  settle();
  ASSERT_TRUE(store().draft());
  EXPECT_NEAR(store().draft()->x, 0.5, 0.01);
  EXPECT_NEAR(store().draft()->w, 0.25, 0.01);
  EXPECT_EQ(store().draft()->side, "supplier");
  EXPECT_TRUE(reader().find("Note on this area, p1", QAccessible::Button));
  EXPECT_NE(at(inside), kOne);
  QTest::keyClick(window(), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(store().draft());
  EXPECT_EQ(at(inside), kOne);
}

TEST_F(CanvasLooks, NothingIsDrawnWhereDrawingIsOff) {
  store().prefs.drawToComment.set(false);
  settle();
  const QRectF rect = page("supplier-0");
  QTest::mouseClick(
      window(), Qt::LeftButton, {},
      QPointF{rect.x() + 0.8 * rect.width(), rect.y() + 0.8 * rect.height()}.toPoint());
  settle();
  EXPECT_FALSE(store().draft());
  // Boxes can be pressed all the same.
  QTest::mouseClick(
      window(), Qt::LeftButton, {},
      QPointF{rect.x() + 0.2 * rect.width(), rect.y() + 0.15 * rect.height()}.toPoint());
  settle();
  EXPECT_TRUE(store().focus());
}

}  // namespace
}  // namespace vellix
