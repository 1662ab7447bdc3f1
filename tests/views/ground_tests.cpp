// What lies over a page takes what falls on it: nothing of it reaches the page.
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>
#include <functional>

#include "views/notes_test.hpp"
#include "views/page_sights.hpp"

namespace vellix {
namespace {

class Grounds : public NotesViewTest {
 protected:
  Grounds() {
    FileDetail detail = lighthouse();
    // A mark as large as the page would tell of any hover that came through.
    detail.findings[0].box = {0, 0, 1, 1};
    serveTheDay();
    store().details.set({{"t1", detail}});
    store().prefs.showNotes.set(false);
    store().prefs.showPageStrip.set(false);
  }
  void open(QSize size) {
    showMain(size);
    calm();
    settle();
    compare()->stage()->pinch(2);
    compare()->stage()->endPinch();
    settle();
  }
  CompareModel* compare() { return models()["compare"].value<CompareModel*>(); }
  QQuickItem* stage() {
    for (QQuickItem* each : seen(window()->contentItem(), "QQuickFlickable")) {
      if (each->property("pixelAligned").toBool()) return each;
    }
    return nullptr;
  }
  QPointF scroll() {
    return {stage()->property("contentX").toDouble(), stage()->property("contentY").toDouble()};
  }
  static QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene(item->boundingRect());
  }
  // Spots of the item, over the stage, that no control of its own has.
  QList<QPoint> bareSpots(const QQuickItem* item) {
    QList<QRectF> taken;
    for (const char* type : {"PressArea", "TextArea", "FindingCard"}) {
      for (const QQuickItem* each : seen(item, type)) {
        // Two fingers need some room.
        taken.append(placeOf(each).adjusted(-10, 0, 0, 0));
      }
    }
    const QRectF place = placeOf(item).intersected(placeOf(stage())).adjusted(3, 3, -12, -3);
    QList<QPoint> spots;
    for (int i = 0; i < 6; ++i) {
      for (int j = 0; j < 6; ++j) {
        const QPoint at =
            QPointF{place.x() + place.width() * i / 5.0, place.y() + place.height() * j / 5.0}
                .toPoint();
        const bool free =
            std::ranges::none_of(taken, [&](const QRectF& each) { return each.contains(at); });
        if (free && place.contains(at)) spots.append(at);
      }
    }
    return spots;
  }
  void wheel(QPoint at, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event{at,        window()->mapToGlobal(at), {},   {0, -120}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase,         false};
    QCoreApplication::sendEvent(window(), &event);
  }
  void pinch(QPoint at) {
    for (const auto& [type, value] : {std::pair{Qt::BeginNativeGesture, 0.0},
                                      {Qt::ZoomNativeGesture, 0.4},
                                      {Qt::EndNativeGesture, 0.0}}) {
      QNativeGestureEvent event{type,      QPointingDevice::primaryPointingDevice(),
                                2,         at,
                                at,        window()->mapToGlobal(at),
                                value,     {},
                                ++gesture_};
      QCoreApplication::sendEvent(window(), &event);
    }
  }
  void pinchByFingers(QPoint at) {
    auto touch = QTest::touchEvent(window(), screen_.get());
    touch.press(0, at).press(1, at + QPoint{8, 0}).commit();
    for (int i = 1; i <= 6; ++i) {
      touch.move(0, at - QPoint{8 * i, 0}).move(1, at + QPoint{8 + 8 * i, 0}).commit();
    }
    touch.release(0, at - QPoint{48, 0}).release(1, at + QPoint{56, 0}).commit();
  }
  bool pageIsHovered() { return std::ranges::any_of(seenMarks(stage()), &SeenMark::hovered); }

  // How the page stands.
  struct Sight {
    std::optional<DraftNote> draft;
    std::optional<std::string> focus;
    double zoom = 1;
    QPointF scroll;
    std::map<std::string, Int> page;
    bool operator==(const Sight&) const = default;
    friend void PrintTo(const Sight& sight, std::ostream* out) {
      *out << (sight.draft ? "a draft, " : "") << sight.focus.value_or("no focus") << ", zoom "
           << sight.zoom << ", at " << sight.scroll.x() << "," << sight.scroll.y();
      for (const auto& [id, page] : sight.page) *out << ", page " << page << " of " << id;
    }
  };
  Sight sight() {
    settle();
    return {store().draft(), store().focus(), store().zoom(), scroll(), store().page()};
  }
  void point(const QList<QPoint>& spots) {
    ASSERT_GT(spots.size(), 5);
    const Sight before = sight();
    for (const QPoint at : spots) {
      const std::string where = std::to_string(at.x()) + "," + std::to_string(at.y());
      QTest::mouseMove(window(), at);
      settle();
      EXPECT_EQ(window()->cursor().shape(), Qt::ArrowCursor) << where;
      EXPECT_FALSE(pageIsHovered()) << where;
      for (const auto keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
        wheel(at, keys);
        EXPECT_EQ(sight(), before) << "wheel with " << keys << " at " << where;
      }
      pinch(at);
      EXPECT_EQ(sight(), before) << "pinch at " << where;
      if (HasFailure()) return;
    }
  }
  void press(const QQuickItem* item) {
    const Sight before = sight();
    for (const QPoint at : bareSpots(item)) {
      // A drag may have scrolled what lies on it.
      if (!bareSpots(item).contains(at)) continue;
      const std::string where = std::to_string(at.x()) + "," + std::to_string(at.y());
      for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mouseClick(window(), button, {}, at);
        EXPECT_EQ(sight(), before) << "click with " << button << " at " << where;
      }
      for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mousePress(window(), button, {}, at);
        for (int i = 1; i <= 4; ++i) QTest::mouseMove(window(), at - QPoint{20 * i, 15 * i});
        QTest::mouseRelease(window(), button, {}, at - QPoint{80, 60});
        EXPECT_EQ(sight(), before) << "drag with " << button << " from " << where;
      }
      pinchByFingers(at);
      EXPECT_EQ(sight(), before) << "two fingers at " << where;
      if (HasFailure()) return;
    }
  }
  // All that can be done with a pointer, everywhere on the item.
  void tryOut(const QQuickItem* item) {
    ASSERT_TRUE(item);
    point(bareSpots(item));
    press(item);
  }

 private:
  quint64 gesture_ = 0;
  std::unique_ptr<QPointingDevice> screen_{QTest::createTouchDevice()};
};

TEST_F(Grounds, OfTheNotesPanelWhereItFloats) {
  open({760, 540});
  store().notesDrawer.set(true);
  ASSERT_TRUE(comes([this] { return seen(window()->contentItem(), "Inspector").size() == 1; }));
  tryOut(seen(window()->contentItem(), "Inspector")[0]->parentItem()->parentItem());
}

TEST_F(Grounds, OfTheToast) {
  open({1'000, 700});
  store().toast.set(Toast{"Marked fine, as it was before.", "Undo", [] {}});
  settle();
  tryOut(seen(window()->contentItem(), "ToastView").value(0));
  EXPECT_TRUE(store().toast()) << "beside its button a press does nothing";
}

TEST_F(Grounds, OfTheDraftCard) {
  open({1'000, 700});
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.4, .y = 0.1});
  ASSERT_TRUE(comes([this] { return keyedName() == kCardField; }));
  tryOut(seen(window()->contentItem(), "DraftCard").value(0));
}

TEST_F(Grounds, OfTheLoupe) {
  open({1'000, 700});
  store().focus.set("f1");
  settle();
  tryOut(seen(window()->contentItem(), "Loupe").value(0));
}

TEST_F(Grounds, OfAPopover) {
  open({1'000, 700});
  seen(window()->contentItem(), "DueButton").value(0)->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Space);
  ASSERT_TRUE(comes([this] { return item("Review due", QAccessible::Dialog) != nullptr; }));
  tryOut(item("Review due", QAccessible::Dialog));
  EXPECT_TRUE(item("Review due", QAccessible::Dialog));
}

// A press beside it closes it; all else is nobody's.
TEST_F(Grounds, OfThePageBehindAPopover) {
  open({1'000, 700});
  seen(window()->contentItem(), "DueButton").value(0)->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Space);
  ASSERT_TRUE(comes([this] { return item("Review due", QAccessible::Dialog) != nullptr; }));
  const QRectF front = placeOf(item("Review due", QAccessible::Dialog)).adjusted(-30, -30, 30, 30);
  auto beside = bareSpots(stage());
  beside.removeIf([&](QPoint at) { return front.contains(at); });
  point(beside);
}

// The second press of a double one on its button falls on what is leaving.
TEST_F(Grounds, OfACardThatLeaves) {
  showMain({1'000, 700});
  settle();
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.4, .y = 0.1});
  ASSERT_TRUE(comes([this] { return keyedName() == kCardField; }));
  const QPoint at = placeOf(item("Discard (Esc)")).center().toPoint();
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(window(), Qt::LeftButton, {}, at);
    settle();
  }
  EXPECT_FALSE(store().draft());
  EXPECT_FALSE(store().focus());
}

TEST_F(Grounds, OfALoupeThatLeaves) {
  open({1'000, 700});
  theme()->setReducedMotion(false);
  store().focus.set("f1");
  ASSERT_TRUE(comes([this] {
    return seen(window()->contentItem(), "Loupe")[0]->property("open").toDouble() == 1;
  }));
  const QPoint at = placeOf(item("Close (Esc)")).center().toPoint();
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(window(), Qt::LeftButton, {}, at);
    settle();
  }
  EXPECT_FALSE(store().focus());
  EXPECT_FALSE(store().draft());
}

}  // namespace
}  // namespace vellix
