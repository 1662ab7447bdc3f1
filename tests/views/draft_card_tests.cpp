// The card beside the place of a note that is being written, worked on the canvas.
#include <functional>

#include "compare/draft_place.hpp"
#include "views/notes_test.hpp"
#include "views/page_sights.hpp"

namespace vellix {
namespace {

class DraftCards : public NotesViewTest {
 protected:
  DraftCards() {
    serveTheDay();
    store().prefs.showNotes.set(false);
    store().prefs.showPageStrip.set(false);
    showMain({1'400, 900});
    calm();
    settle();
  }
  QQuickItem* card() {
    const auto cards = seen(window()->contentItem(), "DraftCard");
    return cards.isEmpty() ? nullptr : cards[0];
  }
  QRectF page(const QString& key = "supplier-0") {
    for (QQuickItem* each : seen(window()->contentItem(), "RemoteImage")) {
      if (each->property("key").toString() == key)
        return each->mapRectToScene(each->boundingRect());
    }
    return {};
  }
  QPoint on(double fx, double fy, const QString& key = "supplier-0") {
    const QRectF rect = page(key);
    return QPointF{rect.x() + fx * rect.width(), rect.y() + fy * rect.height()}.toPoint();
  }
  void click(QPoint at) {
    QTest::mouseClick(window(), Qt::LeftButton, {}, at);
    settle();
  }
  bool writes() {
    return comes([this] { return keyedName() == kCardField; });
  }
  // Begins a note there, with the keyboard in its card.
  void begin(double fx = 0.5, double fy = 0.3, const QString& key = "supplier-0") {
    click(on(fx, fy, key));
    ASSERT_TRUE(store().draft());
    ASSERT_TRUE(writes());
  }
  QRectF place() { return card()->mapRectToScene(card()->boundingRect()); }
};

TEST_F(DraftCards, ComeWithTheKeyboardAfterAPress) {
  EXPECT_FALSE(card());
  click(on(0.5, 0.3));
  ASSERT_TRUE(card());
  ASSERT_TRUE(writes());
  EXPECT_TRUE(reader().find("Note here, p1", QAccessible::Grouping));
  for (const QString text : {"Note here, p1", "Ctrl+Return to post · Esc to cancel"}) {
    EXPECT_TRUE(says(text)) << text.toStdString();
  }
  EXPECT_TRUE(item("Tag people"));
  EXPECT_TRUE(item("Discard (Esc)"));
  EXPECT_EQ(reader().enabled("Post"), 0);
}

TEST_F(DraftCards, NameAnArea) {
  QTest::mousePress(window(), Qt::LeftButton, {}, on(0.4, 0.3));
  QTest::mouseMove(window(), on(0.6, 0.4));
  QTest::mouseRelease(window(), Qt::LeftButton, {}, on(0.6, 0.4));
  settle();
  EXPECT_TRUE(says("Note on this area, p1"));
}

TEST_F(DraftCards, StandByTheirMark) {
  begin(0.5, 0.3);
  EXPECT_EQ(place().size(), QSizeF(290, 190));
  const QRectF rect = page();
  const auto& draft = *store().draft();
  const Spot centre =
      draftCardCentre({draft.x, draft.y, draft.w, draft.h}, {rect.width(), rect.height()});
  EXPECT_NEAR(place().center().x() - rect.x(), centre.x, 0.01);
  EXPECT_NEAR(place().center().y() - rect.y(), centre.y, 0.01);
  EXPECT_EQ(seen(window()->contentItem(), "DraftCard").size(), 1);
}

TEST_F(DraftCards, StandOnTheReferenceThatWasPressed) {
  FileDetail detail = lighthouse();
  for (auto& each : *detail.file.pages) each.refs->emplace("fbc", RefPage{.img = "fbc-0"});
  store().details.set({{"t1", detail}});
  settle();
  begin(0.5, 0.3, "fbc-0");
  EXPECT_EQ(store().draft()->side, "ours");
  EXPECT_NEAR(place().center().x(), page("fbc-0").center().x(), 1);
  click(on(0.5, 0.3, "submitted-0"));
  EXPECT_NEAR(place().center().x(), page("submitted-0").center().x(), 1);
}

TEST_F(DraftCards, StandWholeInANarrowWindow) {
  resize({760, 540});
  for (const char* key : {"supplier-0", "submitted-0"}) {
    click(on(0.5, 0.02, key));
    ASSERT_TRUE(card());
    const QQuickItem* room = card()->parentItem();
    EXPECT_TRUE(room->mapRectToScene(room->boundingRect()).contains(place())) << key;
  }
}

TEST_F(DraftCards, StandByTheMarkWhileTheyZoom) {
  begin(0.5, 0.3);
  auto* compare = models()["compare"].value<CompareModel*>();
  compare->stage()->pinch(2);
  settle();
  const QRectF rect = page();
  const auto& draft = *store().draft();
  EXPECT_NEAR(place().center().y() - rect.y(), rect.height() * draft.y + 12 + 95, 0.01);
}

TEST_F(DraftCards, ComeIntoSightWhereThePageIsZoomed) {
  auto* compare = models()["compare"].value<CompareModel*>();
  compare->stage()->pinch(4);
  compare->stage()->endPinch();
  settle();
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.9, .y = 0.9});
  ASSERT_TRUE(comes([this] {
    const QQuickItem* room = card() ? card()->parentItem() : nullptr;
    return room && room->mapRectToScene(room->boundingRect()).contains(place());
  }));
}

TEST_F(DraftCards, PostWhatIsWritten) {
  begin();
  type("Too dark");
  const DraftNote draft = *store().draft();
  ASSERT_TRUE(press("Post"));
  EXPECT_FALSE(store().draft());
  ASSERT_EQ(posted("api/comments").size(), 1U);
  const std::string body = posted("api/comments")[0];
  EXPECT_NE(body.find(R"("page":0,"text":"Too dark","tags":[])"), std::string::npos);
  EXPECT_NE(body.find(R"("side":"supplier")"), std::string::npos);
  EXPECT_TRUE(comes([this] { return card() == nullptr; }));
  begin();
  EXPECT_EQ(textOf(keyed()), "");
}

TEST_F(DraftCards, PostByKey) {
  begin();
  key(Qt::Key_Space);
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(store().draft()) << "blanks";
  type("x");
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(store().draft());
  EXPECT_EQ(posted("api/comments").size(), 1U);
}

TEST_F(DraftCards, TagPeople) {
  begin();
  ASSERT_TRUE(press("Tag people"));
  ASSERT_TRUE(comes([this] { return offers("Jorvas"); }));
  ASSERT_TRUE(press("Jorvas", QAccessible::MenuItem));
  key(Qt::Key_Escape);
  ASSERT_TRUE(writes());
  EXPECT_EQ(seen(card(), "TagChip").size(), 1);
  type("x");
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find(R"("tags":["jorvas)"), std::string::npos);
}

TEST_F(DraftCards, CloseTheirMenuBeforeThemselves) {
  begin();
  ASSERT_TRUE(press("Tag people"));
  ASSERT_TRUE(comes([this] { return offers("Jorvas"); }));
  key(Qt::Key_Escape);
  EXPECT_TRUE(comes([this] { return !offers("Jorvas"); }));
  EXPECT_TRUE(store().draft());
  key(Qt::Key_Escape);
  EXPECT_FALSE(store().draft());
}

TEST_F(DraftCards, LeaveEscapeToANoteThatIsEdited) {
  store().prefs.showNotes.set(true);
  store().details.set({{"t1", [] {
                          FileDetail detail = lighthouse(2);
                          detail.comments = {noteBy("n1", "renny")};
                          return detail;
                        }()}});
  begin();
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
  ASSERT_TRUE(comes([this] { return keyedName() == "Note"; }));
  key(Qt::Key_Escape);
  EXPECT_FALSE(field("Note"));
  EXPECT_TRUE(store().draft());
  key(Qt::Key_Escape);
  EXPECT_FALSE(store().draft());
}

TEST_F(DraftCards, GiveTheKeyboardBack) {
  QQuickItem* box = seenMarks(window()->contentItem()).constFirst().item();
  for (const bool byKey : {true, false}) {
    focus(box);
    begin();
    if (byKey) {
      key(Qt::Key_Escape);
    } else {
      ASSERT_TRUE(press("Discard (Esc)"));
    }
    EXPECT_FALSE(store().draft());
    EXPECT_EQ(keyed(), box);
    ASSERT_TRUE(comes([this] { return card() == nullptr; }));
  }
  focus(box);
  begin();
  // What had it before is gone.
  FileDetail detail = lighthouse(2);
  detail.findings.clear();
  store().details.set({{"t1", detail}});
  settle();
  key(Qt::Key_Escape);
  EXPECT_TRUE(reader().find("Pages", QAccessible::Pane));
  EXPECT_TRUE(isOfType(keyed(), "QQuickFlickable"));
}

TEST_F(DraftCards, MoveWithTheirTextToAnotherPlace) {
  begin(0.5, 0.3);
  type("Too dark");
  const QRectF before = place();
  click(on(0.5, 0.9));
  EXPECT_NE(place(), before);
  EXPECT_EQ(textOf(field(kCardField)), "Too dark");
  EXPECT_EQ(keyedName(), kCardField);
}

TEST_F(DraftCards, TakeNoPressForThePageUnderThem) {
  begin();
  const DraftNote draft = *store().draft();
  click(place().center().toPoint() + QPoint{0, 60});
  click(place().topLeft().toPoint() + QPoint{20, 4});
  EXPECT_EQ(store().draft(), draft);
}

TEST_F(DraftCards, KeepTheKeysToThemselves) {
  begin();
  type("x");
  key(Qt::Key_Return);
  type("yo 1+-=");
  key(Qt::Key_Up);
  key(Qt::Key_Home);
  key(Qt::Key_PageDown);
  key(Qt::Key_Up, Qt::ControlModifier);
  type(">");
  key(Qt::Key_Down, Qt::ControlModifier);
  type("<");
  EXPECT_EQ(textOf(keyed()), ">x\nyo 1+-=<");
  EXPECT_TRUE(store().draft());
  EXPECT_TRUE(store().page().empty() || store().page().at("t1") == 0);
  EXPECT_EQ(store().zoom(), 1);
}

TEST_F(DraftCards, StayThroughPolls) {
  begin();
  type("Too drk");
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  QQuickItem* before = keyed();
  const QRectF stood = place();
  FileDetail detail = lighthouse(2);
  detail.findings.insert(detail.findings.begin(), findingOf("f0"));
  detail.comments = {noteBy("n1", "jorvas")};
  store().details.set({{"t1", detail}});
  BoardState board = *store().board();
  board.rev = 9;
  board.users.push_back({.email = "zed@tessarine.example", .name = "Zed"});
  store().board.set(board);
  settle();
  EXPECT_EQ(keyed(), before);
  EXPECT_EQ(place(), stood);
  type("a");
  EXPECT_EQ(textOf(keyed()), "Too dark");
}

TEST_F(DraftCards, StayWhileThePanesTakeTurns) {
  begin();
  type("Too ");
  store().mode.set(CompareMode::blink);
  settle();
  desk.time.advance(Milliseconds{1'400});
  settle();
  desk.time.advance(Milliseconds{700});
  settle();
  type("dark");
  EXPECT_EQ(textOf(field(kCardField)), "Too dark");
}

TEST_F(DraftCards, WaitOnTheirPage) {
  begin();
  type("Too dark");
  store().goToPage("t1", 1);
  ASSERT_TRUE(comes([this] { return card() == nullptr; }));
  store().goToPage("t1", 0);
  ASSERT_TRUE(writes());
  EXPECT_EQ(textOf(keyed()), "Too dark");
  ASSERT_TRUE(press("Next page"));
  EXPECT_FALSE(store().draft()) << "a step ends it";
  ASSERT_TRUE(press("Previous page"));
  EXPECT_FALSE(card());
}

TEST_F(DraftCards, BeginAnewOnAnotherPage) {
  store().prefs.showNotes.set(true);
  for (const bool drawn : {true, false}) {
    store().goToPage("t1", 0);
    settle();
    begin();
    type("Too dark");
    store().goToPage("t1", 2);
    ASSERT_TRUE(comes([this] { return card() == nullptr; }));
    if (drawn) {
      click(on(0.5, 0.3, "supplier-2"));
    } else {
      ASSERT_TRUE(press("Add a note to this"));
    }
    ASSERT_TRUE(writes());
    EXPECT_EQ(textOf(keyed()), "");
    EXPECT_EQ(reader().enabled("Post"), 0);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(textOf(keyed()), "") << "what was written there is nothing to go back to";
    type("Too light");
    EXPECT_EQ(textOf(keyed()), "Too light");
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_NE(posted("api/comments").back().find(R"("page":2,"text":"Too light")"),
              std::string::npos);
    ASSERT_TRUE(comes([this] { return card() == nullptr; }));
  }
  EXPECT_EQ(posted("api/comments").size(), 2U);
}

TEST_F(DraftCards, BeginAnewOnAnotherTicket) {
  begin();
  type("Too dark");
  store().selection.set({"t2"});
  ASSERT_TRUE(comes([this] { return !card() && store().details().contains("t2"); }));
  store().details.edit([](std::map<std::string, FileDetail>& details) {
    Page& page = details.at("t2").file.pages->front();
    page.img = "other-0";
    page.px = {300, 400};
  });
  settle();
  begin(0.5, 0.3, "other-0");
  EXPECT_EQ(textOf(keyed()), "");
  EXPECT_EQ(reader().enabled("Post"), 0);
}

TEST_F(DraftCards, ComeBackWithTheirTicket) {
  auto* compare = models()["compare"].value<CompareModel*>();
  compare->stage()->pinch(4);
  compare->stage()->endPinch();
  settle();
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.9, .y = 0.9});
  ASSERT_TRUE(writes());
  type("Too dark");
  for (const std::set<std::string>& other : {std::set<std::string>{"t2"}, {"t2", "t3"}, {}}) {
    store().selection.set(other);
    ASSERT_TRUE(comes([this] { return !card(); }));
    store().selection.set({"t1"});
    ASSERT_TRUE(writes()) << other.size();
    EXPECT_EQ(textOf(keyed()), "Too dark");
    EXPECT_TRUE(comes([this] {
      const QQuickItem* room = card()->parentItem();
      return room->mapRectToScene(room->boundingRect()).contains(place());
    })) << other.size();
  }
}

TEST_F(DraftCards, GoOnAtTheEndOfTheirText) {
  begin();
  type("Too");
  store().selection.set({"t2"});
  ASSERT_TRUE(comes([this] { return !card(); }));
  store().selection.set({"t1"});
  ASSERT_TRUE(writes());
  type(" dark");
  EXPECT_EQ(textOf(keyed()), "Too dark");
}

TEST_F(DraftCards, ComeBackFromBehindAPersonsPage) {
  const QString person = "Jorvas's page and stats";
  begin();
  type("Too");
  for (const bool wrote : {true, false}) {
    if (!wrote) focus(item("Make report"));
    ASSERT_TRUE(press(person));
    ASSERT_TRUE(comes([this] { return !card(); })) << wrote;
    EXPECT_NE(keyedName(), kCardField);
    desk.time.advance(Milliseconds{1'000});
    ASSERT_TRUE(press(person));
    ASSERT_TRUE(writes()) << wrote;
  }
  type(" dark");
  EXPECT_EQ(textOf(keyed()), "Too dark");
}

TEST_F(DraftCards, TakeNoKeyboardFromWhoWritesElsewhere) {
  const QString person = "Jorvas's page and stats";
  store().prefs.showNotes.set(true);
  begin();
  type("Too dark");
  focus(field(kField));
  type("For the printer");
  ASSERT_TRUE(press(person));
  ASSERT_TRUE(comes([this] { return !card(); }));
  ASSERT_TRUE(press(person));
  ASSERT_TRUE(comes([this] { return card() && keyedName() == kField; }));
  QTest::qWait(120);
  settle();
  EXPECT_EQ(keyedName(), kField);
  store().goToPage("t1", 1);
  ASSERT_TRUE(comes([this] { return !card(); }));
  store().goToPage("t1", 0);
  ASSERT_TRUE(comes([this] { return card() != nullptr; }));
  QTest::qWait(120);
  settle();
  EXPECT_EQ(keyedName(), kField);
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.8});
  EXPECT_TRUE(writes()) << "what is begun has it";
}

TEST_F(DraftCards, OpenForANoteOnAFinding) {
  store().draft.set(DraftNote{"t1", 0, "supplier", 0.1, 0.1, 0.2, 0.1, "f1"});
  ASSERT_TRUE(writes());
  EXPECT_TRUE(says("Note on this area, p1"));
  type("x");
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find(R"("finding_id":"f1")"), std::string::npos);
}

TEST_F(DraftCards, StayHiddenWithoutTheirPane) {
  store().shown.set({"submitted"});
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.5});
  settle();
  EXPECT_FALSE(card());
  store().shown.set({"submitted", "supplier"});
  EXPECT_TRUE(writes());
}

TEST_F(DraftCards, ComeAndLeaveGrowingAndFading) {
  const std::function<QQuickItem*(QQuickItem*)> find = [&](QQuickItem* at) -> QQuickItem* {
    if (isOfType(at, "DraftCard")) return at;
    for (QQuickItem* child : at->childItems()) {
      if (QQuickItem* found = find(child)) return found;
    }
    return nullptr;
  };
  QQuickItem* card = find(window()->contentItem());
  ASSERT_TRUE(card);
  EXPECT_EQ(card->transformOrigin(), QQuickItem::Center);
  QList<double> scales;
  QObject::connect(card, &QQuickItem::scaleChanged, card, [&] { scales.append(card->scale()); });
  theme()->setReducedMotion(false);
  for (const bool comes : {true, false}) {
    scales.clear();
    if (comes) {
      click(on(0.5, 0.3));
    } else {
      store().draft.set(std::nullopt);
    }
    const double end = comes ? 1 : 0;
    ASSERT_TRUE(QTest::qWaitFor([&] {
      settle();
      return card->opacity() == end;
    }));
    EXPECT_GT(scales.size(), 1) << comes;
    for (const double scale : scales) EXPECT_GE(scale, 0.97);
    EXPECT_DOUBLE_EQ(card->scale(), comes ? 1 : 0.97);
    EXPECT_EQ(card->isVisible(), comes);
  }
}

TEST_F(DraftCards, HoldSixLines) {
  begin();
  const double two = field(kCardField)->parentItem()->parentItem()->height();
  for (int row = 1; row < 6; ++row) key(Qt::Key_Return);
  const QQuickItem* room = field(kCardField)->parentItem()->parentItem();
  EXPECT_GT(room->height(), 2.5 * two);
  EXPECT_GE(room->height(), field(kCardField)->height()) << "all are in sight";
  const double six = room->height();
  key(Qt::Key_Return);
  EXPECT_EQ(room->height(), six);
}

TEST_F(DraftCards, TellWholeByWhichKeysTheyEnd) {
  begin();
  const QQuickItem* hint = seenText(card(), "Ctrl+Return to post · Esc to cancel");
  ASSERT_TRUE(hint);
  EXPECT_FALSE(hint->property("truncated").toBool());
}

TEST_F(DraftCards, HoldRoomForEveryPress) {
  begin();
  const auto pressed = seen(card(), "Pressable");
  EXPECT_EQ(pressed.size(), 3);
  for (const QQuickItem* each : pressed) {
    EXPECT_GE(each->width(), 24) << each->property("label").toString().toStdString();
    EXPECT_GE(each->height(), 24) << each->property("label").toString().toStdString();
  }
}

TEST_F(DraftCards, TakeAVeryLongText) {
  begin();
  field(kCardField)->setProperty("text", QString(100'000, 'w'));
  settle();
  EXPECT_EQ(place().size(), QSizeF(290, 190));
  for (QQuickItem* each : seen(card(), "Pressable")) {
    EXPECT_TRUE(place().contains(each->mapRectToScene(each->boundingRect())));
  }
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_GT(posted("api/comments")[0].size(), 100'000U);
}

}  // namespace
}  // namespace vellix
