// The canvas as it is worked: by mouse, wheel and key, and while polls come in.
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <functional>

#include "compare/canvas.hpp"
#include "views/page_sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class CanvasViews : public ViewTest {
 protected:
  CanvasViews() {
    serveTheDay();
    store().prefs.showNotes.set(false);
    store().prefs.showPageStrip.set(false);
    showMain({1'400, 900});
    settle();
  }
  QQuickItem* stage() {
    for (QQuickItem* each : seen(window()->contentItem(), "QQuickFlickable")) {
      if (each->property("pixelAligned").toBool()) return each;
    }
    return nullptr;
  }
  QPointF scroll() {
    return {stage()->property("contentX").toDouble(), stage()->property("contentY").toDouble()};
  }
  // Zooms at once, as a hand does.
  void zoomTo(double zoom) {
    auto* compare = models()["compare"].value<CompareModel*>();
    compare->stage()->endPinch();
    compare->stage()->pinch(zoom / store().zoom());
    settle();
  }
  QRectF page(const QString& key = "supplier-0") {
    for (QQuickItem* each : seen(stage(), "RemoteImage")) {
      if (each->property("key").toString() == key)
        return each->mapRectToScene(each->boundingRect());
    }
    return {};
  }
  QPoint on(double fx, double fy) {
    const QRectF rect = page();
    return QPointF{rect.x() + fx * rect.width(), rect.y() + fy * rect.height()}.toPoint();
  }
  void wheel(QPoint at, QPoint delta, Qt::KeyboardModifiers modifiers = {}) {
    QWheelEvent event{at,        window()->mapToGlobal(at), {},   delta, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase,         false};
    QCoreApplication::sendEvent(window(), &event);
    settle();
  }
  QStringList panes() {
    QStringList names;
    for (const QString& name : reader().names(QAccessible::Grouping)) {
      if (name.contains(" · p")) names.append(name);
    }
    return names;
  }
  bool has(const QString& name, QAccessible::Role role = QAccessible::Button) {
    return reader().find(name, role) != nullptr;
  }
  // Waits for what fades in.
  bool comes(const QString& name, QAccessible::Role role = QAccessible::Button) {
    return QTest::qWaitFor([&] { return has(name, role); });
  }
  static inline const QString kBox = "A word changed, Fix, Open, page 1";
};

TEST_F(CanvasViews, TakeTurnsAtTheirPace) {
  ASSERT_TRUE(press("Blink", QAccessible::RadioButton));
  EXPECT_EQ(panes(), QStringList{"Harrow Print file · p1"});
  desk.time.advance(Milliseconds{700});
  settle();
  EXPECT_EQ(panes(), QStringList{"What we sent · p1"});
  ASSERT_TRUE(press("Side by side", QAccessible::RadioButton));
  EXPECT_EQ(panes().size(), 3);
}

TEST_F(CanvasViews, OfferTheOverlaysControlsWithItAlone) {
  EXPECT_FALSE(has("Difference", QAccessible::CheckBox));
  ASSERT_TRUE(press("Overlay", QAccessible::RadioButton));
  EXPECT_TRUE(has("How much of ours shows through", QAccessible::Slider));
  ASSERT_TRUE(press("Difference", QAccessible::CheckBox));
  EXPECT_TRUE(reader().find("Difference", QAccessible::CheckBox)->state().checked);
  ASSERT_TRUE(press("Blink", QAccessible::RadioButton));
  EXPECT_FALSE(has("Difference", QAccessible::CheckBox));
}

TEST_F(CanvasViews, SelectAFindingByItsBoxAndShowItsSpot) {
  ASSERT_TRUE(reader().find(kBox, QAccessible::Button));
  ASSERT_TRUE(press(kBox));
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_TRUE(reader().find(kBox, QAccessible::Button)->state().checked);
  EXPECT_TRUE(comes("Close (Esc)"));
  EXPECT_TRUE(comes("What we sent", QAccessible::StaticText)) << "the caption of a cut-out";
  ASSERT_TRUE(press(kBox));
  EXPECT_FALSE(store().focus());
}

TEST_F(CanvasViews, SelectAFindingByAClick) {
  QTest::mouseClick(window(), Qt::LeftButton, {}, on(0.2, 0.15));
  settle();
  // Two lie in the same place: the later one is above.
  EXPECT_EQ(store().focus(), "f2");
  EXPECT_FALSE(store().draft()) << "the page under the box was not clicked";
  QTest::mouseClick(window(), Qt::LeftButton, {}, on(0.2, 0.15));
  settle();
  EXPECT_FALSE(store().focus());
}

TEST_F(CanvasViews, GiveEscapeToTheDraftBeforeTheLoupe) {
  ASSERT_TRUE(press(kBox));
  QTest::mouseClick(window(), Qt::LeftButton, {}, on(0.8, 0.4));
  settle();
  ASSERT_TRUE(store().draft());
  ASSERT_TRUE(store().focus());
  QTest::keyClick(window(), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(store().draft());
  EXPECT_EQ(store().focus(), "f1");
  QTest::keyClick(window(), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(store().focus());
}

TEST_F(CanvasViews, CloseTheLoupeWithoutOtherKeysHeld) {
  ASSERT_TRUE(press(kBox));
  QTest::keyClick(window(), Qt::Key_Escape, Qt::ShiftModifier);
  settle();
  EXPECT_TRUE(store().focus());
  ASSERT_TRUE(comes("Close (Esc)"));
  ASSERT_TRUE(press("Close (Esc)"));
  EXPECT_FALSE(store().focus());
}

TEST_F(CanvasViews, LetAPollComeInWhileANoteIsDrawn) {
  QTest::mousePress(window(), Qt::LeftButton, {}, on(0.5, 0.5));
  QTest::mouseMove(window(), on(0.6, 0.6));
  FileDetail changed = lighthouse(2);
  changed.findings.insert(changed.findings.begin(), findingOf("f0"));
  store().details.set({{"t1", changed}});
  settle();
  QTest::mouseMove(window(), on(0.75, 0.75));
  QTest::mouseRelease(window(), Qt::LeftButton, {}, on(0.75, 0.75));
  settle();
  ASSERT_TRUE(store().draft());
  EXPECT_NEAR(store().draft()->x, 0.5, 0.01);
  EXPECT_NEAR(store().draft()->h, 0.25, 0.01);
}

// A poll, a panel or a key changes the size of the page: the drag lies where it lay on the page.
TEST_F(CanvasViews, GoOnWithADragWhenThePageChangesItsSize) {
  const std::vector<std::pair<const char*, std::function<void()>>> changes{
      {"a longer summary",
       [this] {
         FileDetail changed = lighthouse(2);
         changed.file.summary = std::string(900, 'x') + " and so on";
         BoardState board = *store().board();
         board.files[0].summary = changed.file.summary;
         store().board.set(board);
         store().details.set({{"t1", changed}});
       }},
      {"the notes", [this] { store().prefs.showNotes.set(true); }},
      {"the strip", [this] { store().prefs.showPageStrip.set(true); }},
      {"the window", [this] { window()->resize(1'300, 860); }},
      {"the zoom", [this] { store().zoomTo(1.5); }},
      {"another page hidden", [this] { store().togglePane("third"); }},
  };
  theme()->setReducedMotion(true);
  for (const auto& [what, change] : changes) {
    store().draft.set(std::nullopt);
    settle();
    QTest::mousePress(window(), Qt::LeftButton, {}, on(0.45, 0.45));
    QTest::mouseMove(window(), on(0.5, 0.5));
    const QRectF before = page();
    change();
    settle();
    ASSERT_NE(page(), before) << what;
    QTest::mouseMove(window(), on(0.55, 0.5));
    QTest::mouseMove(window(), on(0.65, 0.6));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, on(0.65, 0.6));
    settle();
    ASSERT_TRUE(store().draft()) << what;
    EXPECT_NEAR(store().draft()->x, 0.45, 0.01) << what;
    EXPECT_NEAR(store().draft()->y, 0.45, 0.01) << what;
    EXPECT_NEAR(store().draft()->w, 0.2, 0.01) << what;
    EXPECT_NEAR(store().draft()->h, 0.15, 0.01) << what;
  }
}

TEST_F(CanvasViews, TakeAClickForOneWhenThePageMovesUnderIt) {
  theme()->setReducedMotion(true);
  const QPoint at = on(0.5, 0.5);
  QTest::mousePress(window(), Qt::LeftButton, {}, at);
  const QRectF before = page();
  store().prefs.showPageStrip.set(true);
  settle();
  ASSERT_NE(page(), before);
  QTest::mouseRelease(window(), Qt::LeftButton, {}, at);
  settle();
  ASSERT_TRUE(store().draft());
  EXPECT_NEAR(store().draft()->x, 0.5, 0.01);
  EXPECT_EQ(store().draft()->w, 0);
}

TEST_F(CanvasViews, TellTheDraftAndGoToItsTextWhenItIsPressed) {
  QTest::mouseClick(window(), Qt::LeftButton, {}, on(0.8, 0.4));
  settle();
  ASSERT_TRUE(has("Note here, p1"));
  ASSERT_TRUE(press("Note here, p1"));
  EXPECT_TRUE(store().draft());
  EXPECT_TRUE(QTest::qWaitFor([this] {
    QQuickItem* at = window()->activeFocusItem();
    return at && isOfType(at, "QQuickTextEdit");
  }));
}

TEST_F(CanvasViews, BeginNotesOfOursOnAReference) {
  const QRectF rect = page("submitted-0");
  QTest::mouseClick(window(), Qt::LeftButton, {}, rect.center().toPoint());
  settle();
  ASSERT_TRUE(store().draft());
  EXPECT_EQ(store().draft()->side, "ours");
}

TEST_F(CanvasViews, OpenThePanelForANote) {
  FileDetail detail = lighthouse();
  Note note;
  note.id = "n1";
  note.page = 0;
  note.x = 0.5;
  note.y = 0.5;
  note.text = "Too dark";
  note.by = "jorvas@tessarine.example";
  detail.comments = {note};
  store().details.set({{"t1", detail}});
  settle();
  ASSERT_TRUE(press("Note 1, Jorvas: Too dark, page 1"));
  EXPECT_TRUE(store().prefs.showNotes());
}

TEST_F(CanvasViews, ZoomAboutThePointerByControlAndWheel) {
  const QPoint spot = on(0.75, 0.5);
  for (int i = 0; i < 4; ++i) wheel(spot, {0, 120}, Qt::ControlModifier);
  EXPECT_NEAR(store().zoom(), 2.44, 0.01);
  EXPECT_NEAR(on(0.75, 0.5).x(), spot.x(), 3);
  EXPECT_NEAR(on(0.75, 0.5).y(), spot.y(), 3);
  for (int i = 0; i < 9; ++i) wheel(spot, {0, -120}, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1);
  EXPECT_EQ(scroll(), QPointF(0, 0));
}

TEST_F(CanvasViews, ScrollOnlyWhenZoomed) {
  EXPECT_FALSE(stage()->property("interactive").toBool());
  zoomTo(3);
  EXPECT_TRUE(stage()->property("interactive").toBool());
  const QPointF before = scroll();
  const QRectF room = stage()->mapRectToScene(stage()->boundingRect());
  wheel(room.center().toPoint(), {0, -120}, Qt::ShiftModifier);
  EXPECT_GT(scroll().x(), before.x());
  EXPECT_EQ(scroll().y(), before.y());
}

TEST_F(CanvasViews, PanByTheWheelOnceZoomed) {
  wheel(on(0.5, 0.5), {0, -120});
  EXPECT_EQ(scroll(), QPointF(0, 0));
  zoomTo(3);
  wheel(on(0.5, 0.2), {0, -120});
  EXPECT_TRUE(QTest::qWaitFor([this] { return scroll().y() > 0; }));
  EXPECT_EQ(store().zoom(), 3);
}

TEST_F(CanvasViews, PanByADragWhereNothingIsDrawn) {
  store().prefs.drawToComment.set(false);
  zoomTo(3);
  const QPoint from{700, 500};
  QTest::mousePress(window(), Qt::LeftButton, {}, from);
  for (int step = 1; step <= 8; ++step) {
    QTest::mouseMove(window(), from - QPoint{step * 10, step * 12}, 5);
  }
  QTest::mouseRelease(window(), Qt::LeftButton, {}, from - QPoint{80, 96});
  settle();
  EXPECT_GT(scroll().x(), 20);
  EXPECT_GT(scroll().y(), 20);
  EXPECT_FALSE(store().draft());
}

TEST_F(CanvasViews, PanByKeysWithinTheirContent) {
  zoomTo(3);
  QMetaObject::invokeMethod(stage(), "forceActiveFocus");
  QTest::keyClick(window(), Qt::Key_Home);
  EXPECT_EQ(scroll(), QPointF(0, 0));
  QTest::keyClick(window(), Qt::Key_Right);
  QTest::keyClick(window(), Qt::Key_Down);
  EXPECT_EQ(scroll(), QPointF(48, 48));
  QTest::keyClick(window(), Qt::Key_Left);
  QTest::keyClick(window(), Qt::Key_Left);
  QTest::keyClick(window(), Qt::Key_Up);
  EXPECT_EQ(scroll(), QPointF(0, 0));
  QTest::keyClick(window(), Qt::Key_End);
  EXPECT_NEAR(scroll().x(), stage()->property("contentWidth").toDouble() - stage()->width(), 1);
  EXPECT_NEAR(scroll().y(), stage()->property("contentHeight").toDouble() - stage()->height(), 1);
  QTest::keyClick(window(), Qt::Key_PageUp);
  EXPECT_LT(scroll().y(), stage()->property("contentHeight").toDouble() - 1.5 * stage()->height());
}

TEST_F(CanvasViews, PanByTheMiddleButtonWhereTheLeftOneDraws) {
  zoomTo(3);
  const QPointF before = scroll();
  const QPoint from{700, 400};
  QTest::mousePress(window(), Qt::MiddleButton, {}, from);
  QTest::mouseMove(window(), from - QPoint{30, 20});
  QTest::mouseRelease(window(), Qt::MiddleButton, {}, from - QPoint{30, 20});
  settle();
  EXPECT_EQ(scroll(), before + QPointF(30, 20));
  EXPECT_FALSE(store().draft());
}

TEST_F(CanvasViews, BringASelectedFindingInSight) {
  zoomTo(4);
  QMetaObject::invokeMethod(stage(), "forceActiveFocus");
  QTest::keyClick(window(), Qt::Key_End);
  store().focus.set("f1");
  const auto inSight = [this] {
    settle();
    const QRectF room = stage()->mapRectToScene(stage()->boundingRect());
    return std::ranges::any_of(seenMarks(stage()), [&](const SeenMark& box) {
      return box.selected && room.contains(box.place);
    });
  };
  EXPECT_FALSE(inSight());
  const bool came = QTest::qWaitFor(inSight);
  EXPECT_TRUE(came);
}

TEST_F(CanvasViews, BringAMarkInSightThatTheKeyboardHasComeTo) {
  zoomTo(4);
  QMetaObject::invokeMethod(stage(), "forceActiveFocus");
  QTest::keyClick(window(), Qt::Key_End);
  QQuickItem* box = seenMarks(stage()).constFirst().item();
  box->forceActiveFocus(Qt::TabFocusReason);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    settle();
    const QRectF room = stage()->mapRectToScene(stage()->boundingRect());
    return room.contains(box->mapRectToScene(box->boundingRect()));
  }));
}

TEST_F(CanvasViews, DropADragWhosePageIsTurned) {
  QTest::mousePress(window(), Qt::LeftButton, {}, on(0.5, 0.5));
  QTest::mouseMove(window(), on(0.6, 0.6));
  QTest::keyClick(window(), Qt::Key_Down, Qt::ControlModifier);
  settle();
  QTest::mouseRelease(window(), Qt::LeftButton, {}, on(0.7, 0.7));
  settle();
  EXPECT_EQ(store().page().at("t1"), 1);
  EXPECT_FALSE(store().draft());
}

TEST_F(CanvasViews, PinchOnAPage) {
  const auto pinch = [this](Qt::NativeGestureType type, double value) {
    const QPointF at = on(0.75, 0.5);
    QNativeGestureEvent event{type,  QPointingDevice::primaryPointingDevice(),
                              2,     at,
                              at,    window()->mapToGlobal(at),
                              value, {},
                              1};
    QCoreApplication::sendEvent(window(), &event);
    settle();
  };
  const QPoint spot = on(0.75, 0.5);
  pinch(Qt::BeginNativeGesture, 0);
  for (int i = 0; i < 10; ++i) pinch(Qt::ZoomNativeGesture, 0.1);
  pinch(Qt::EndNativeGesture, 0);
  EXPECT_GT(store().zoom(), 1.8);
  EXPECT_NEAR(on(0.75, 0.5).x(), spot.x(), 6);
  EXPECT_FALSE(store().draft());
}

TEST_F(CanvasViews, KeepTheHoverOfABoxAcrossAPoll) {
  QTest::mouseMove(window(), on(0.2, 0.15));
  settle();
  QTest::mouseMove(window(), on(0.21, 0.15));
  settle();
  const auto hovered = [this] {
    QStringList findings;
    for (const SeenMark& box : seenMarks(stage())) {
      if (box.hovered) findings.append(box.finding);
    }
    return findings;
  };
  const QStringList before = hovered();
  ASSERT_FALSE(before.isEmpty());
  FileDetail changed = lighthouse(2);
  changed.findings.insert(changed.findings.begin(), findingOf("f0", 0, "low"));
  changed.findings.front().box = {0.8, 0.8, 0.05, 0.05};
  store().details.set({{"t1", changed}});
  settle();
  EXPECT_EQ(hovered(), before);
}

TEST_F(CanvasViews, GiveTheKeyboardBackWhenTheLoupeIsClosedByIt) {
  QQuickItem* box = seenMarks(stage()).constFirst().item();
  box->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  ASSERT_TRUE(comes("Close (Esc)"));
  QQuickItem* close = nullptr;
  for (QQuickItem* each : seen(window()->contentItem(), "IconButton")) {
    if (each->property("help").toString() == "Close (Esc)") close = each;
  }
  ASSERT_TRUE(close);
  close->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  EXPECT_FALSE(store().focus());
  EXPECT_TRUE(box->hasActiveFocus());
}

TEST_F(CanvasViews, HandTheKeyboardOnWhereAButtonEnds) {
  const auto button = [this](const QString& help) -> QQuickItem* {
    for (QQuickItem* each : seen(window()->contentItem(), "IconButton")) {
      if (each->property("help").toString() == help) return each;
    }
    return nullptr;
  };
  button("Next page")->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  ASSERT_EQ(store().page().at("t1"), 2);
  EXPECT_TRUE(button("Previous page")->hasActiveFocus());
}

TEST_F(CanvasViews, OpenTheLoupeOnPicturesThatAreHere) {
  const QStringList before = pictures.asked;
  ASSERT_TRUE(press(kBox));
  ASSERT_TRUE(comes("Close (Esc)"));
  const QSet<QString> known(before.begin(), before.end());
  for (const QString& key : std::as_const(pictures.asked)) EXPECT_TRUE(known.contains(key));
}

TEST_F(CanvasViews, StandOnATicketOfAThousandPages) {
  FileDetail detail = lighthouse();
  detail.file.pages = pagesOf(1'000);
  detail.findings.clear();
  for (Int i = 0; i < 1'000; ++i) detail.findings.push_back(findingOf("f" + std::to_string(i), i));
  store().details.set({{"t1", detail}});
  store().page.set({{"t1", 999}});
  settle();
  EXPECT_TRUE(has("p1000 · 1000 of 1000", QAccessible::StaticText));
}

TEST_F(CanvasViews, HoldALongPageNameWithinTheBar) {
  FileDetail detail = lighthouse();
  detail.file.pages->front().label = std::string(300, 'x');
  store().details.set({{"t1", detail}});
  resize({760, 540});
  for (QQuickItem* each : seen(window()->contentItem(), "IconButton")) {
    const QRectF place = each->mapRectToScene(each->boundingRect());
    EXPECT_GE(place.left(), 0);
    EXPECT_LE(place.right(), 760);
  }
}

TEST_F(CanvasViews, KeepTheirPlaceAcrossAPageStep) {
  zoomTo(3);
  const QPointF before = scroll();
  ASSERT_TRUE(press("Next page"));
  EXPECT_EQ(scroll(), before);
}

TEST_F(CanvasViews, KeepTheFocusOfABoxAcrossAPoll) {
  QQuickItem* box = seenMarks(stage()).constFirst().item();
  box->forceActiveFocus();
  FileDetail changed = lighthouse(2);
  changed.findings.push_back(findingOf("f9"));
  changed.findings.insert(changed.findings.begin(), findingOf("f0"));
  store().details.set({{"t1", changed}});
  settle();
  EXPECT_TRUE(box->hasActiveFocus());
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  EXPECT_EQ(store().focus(), "f1");
}

TEST_F(CanvasViews, SayThereAreNoPagesAndKeepTheBar) {
  FileDetail detail = lighthouse();
  detail.file.pages = std::vector<Page>{};
  detail.findings.clear();
  store().details.set({{"t1", detail}});
  settle();
  EXPECT_TRUE(has("No pages in this file.", QAccessible::StaticText));
  EXPECT_TRUE(has("Blink", QAccessible::RadioButton));
  EXPECT_EQ(reader().enabled("Next page"), 0);
  for (const char* mode : {"Overlay", "Blink", "Side by side"}) {
    ASSERT_TRUE(press(mode, QAccessible::RadioButton));
  }
  zoomTo(4);
}

TEST_F(CanvasViews, StandWhateverTheShapesOfTheirPages) {
  for (const double width : {0.0, 15.0, 6'000.0, -300.0}) {
    FileDetail detail = lighthouse();
    for (auto& each : *detail.file.pages) each.px = {width, 300};
    detail.findings[0].box = {0.5, 0.5, 900, -3};
    detail.findings[1].boxes = {{0.1}, {}, {1e300, -1e300, 1e300, 1e300}};
    store().details.set({{"t1", detail}});
    settle();
    zoomTo(4);
    zoomTo(1);
    EXPECT_EQ(panes().size(), 3) << width;
  }
}

}  // namespace
}  // namespace vellix
