// Half-written words stay where they are while the panel around them is moved, hidden and changed.
#include <functional>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

struct Move {
  const char* name;
  bool parents = false;
  bool hides = false;
  bool history = false;
  bool narrows = false;
};
BOOST_DESCRIBE_STRUCT(Move, (), (name, parents, hides, history, narrows))

class PanelWords : public NotesViewTest {
 protected:
  PanelWords() {
    serveTheDay();
    store().details.set({{"t1", withNotes({noteBy("n1", "renny"), noteBy("n2", "jorvas")})}});
    desk.time.run();
    show("Inspector/Inspector",
         {{"inspector", models()["inspector"]},
          {"notes", models()["notes"]},
          {"history", models()["history"]},
          {"pictures", models()["pictures"]}},
         {320, 600});
    calm();
  }
  QQuickItem* panel() { return seen(window()->contentItem(), "Inspector").value(0); }
  QQuickItem* scroll() { return seen(window()->contentItem(), "ScrollArea").constFirst(); }
  void edit() {
    ASSERT_TRUE(press("Edit or delete"));
    ASSERT_TRUE(comes([this] { return offers("Edit"); }));
    ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
    ASSERT_TRUE(comes([this] { return !offers("Edit") && keyedName() == "Note"; }));
  }
  static int caretOf(const QQuickItem* field) { return field->property("cursorPosition").toInt(); }
  static double topOf(const QQuickItem* item) { return item->mapToScene({0, 0}).y(); }
};

class MovedWords : public PanelWords, public testing::WithParamInterface<Move> {
 protected:
  void away() {
    if (GetParam().parents) panel()->setParentItem(&other_);
    if (GetParam().hides) whole_->setVisible(false);
    if (GetParam().history) store().setSideTab("history");
    if (GetParam().narrows) whole_->setSize({20, 10});
    settle();
  }
  void back() {
    if (GetParam().parents) whole_->setParentItem(home_);
    whole_->setVisible(true);
    store().setSideTab("page");
    whole_->setSize({320, 600});
    settle();
  }
  void SetUp() override {
    whole_ = panel();
    ASSERT_TRUE(whole_);
    home_ = whole_->parentItem();
    other_.setParentItem(window()->contentItem());
  }
  void TearDown() override { other_.setParentItem(nullptr); }

 private:
  QQuickItem other_;
  QQuickItem* whole_ = nullptr;
  QQuickItem* home_ = nullptr;
};

TEST_P(MovedWords, StayInTheComposer) {
  focus(field(kField));
  type("For te printer");
  for (int i = 0; i < 9; ++i) key(Qt::Key_Left);
  const QQuickItem* before = keyed();
  const int caret = caretOf(before);
  away();
  back();
  ASSERT_EQ(field(kField), before);
  field(kField)->forceActiveFocus();
  EXPECT_EQ(caretOf(before), caret);
  type("h");
  EXPECT_EQ(textOf(before), "For the printer");
}

TEST_P(MovedWords, StayInANoteThatIsEdited) {
  edit();
  type("er yt");
  key(Qt::Key_Left);
  const QQuickItem* before = keyed();
  const int caret = caretOf(before);
  away();
  bring({noteBy("n0", "jorvas"), noteBy("n1", "renny", "Too light"), noteBy("n2", "jorvas")});
  back();
  ASSERT_EQ(field("Note"), before);
  field("Note")->forceActiveFocus();
  EXPECT_EQ(caretOf(before), caret);
  type("e");
  EXPECT_EQ(textOf(before), "Too darker yet");
}

INSTANTIATE_TEST_SUITE_P(Where, MovedWords,
                         testing::Values(Move{"ThePanelHasAnotherParent", true},
                                         Move{"ThePanelIsHidden", false, true},
                                         Move{"TheHistoryIsOnShow", false, false, true},
                                         Move{"ThePanelHasNoRoom", false, false, false, true},
                                         Move{"AllOfIt", true, true, true, true}),
                         [](const auto& each) { return each.param.name; });

TEST_F(PanelWords, AreNotWrittenUnseenBehindTheHistory) {
  focus(field(kField));
  type("For the printer");
  const QQuickItem* before = keyed();
  store().setSideTab("history");
  settle();
  EXPECT_EQ(keyedName(), "History");
  type("x");
  store().setSideTab("page");
  settle();
  EXPECT_EQ(keyed(), before);
  EXPECT_EQ(textOf(before), "For the printer");
}

TEST_F(PanelWords, StayOnTheirSpotWhileNotesComeAboveThem) {
  resize({320, 400});
  edit();
  type("er");
  const QQuickItem* before = keyed();
  const double stood = topOf(before);
  ASSERT_GT(stood, 0);
  ASSERT_LT(stood, 400);
  bring({noteBy("n00", "jorvas", "One\nTwo\nThree\nFour\nFive"),
         noteBy("n0", "jorvas", "One\nTwo\nThree\nFour\nFive"), noteBy("n1", "renny"),
         noteBy("n2", "jorvas")});
  EXPECT_EQ(keyed(), before);
  EXPECT_NEAR(topOf(before), stood, 1);
  bring({noteBy("n1", "renny"), noteBy("n2", "jorvas")}, 3);
  EXPECT_NEAR(topOf(before), stood, 1) << "and while they go";
  EXPECT_EQ(textOf(before), "Too darker");
}

TEST_F(PanelWords, AreLeftWhereSomebodyHasScrolledAway) {
  resize({320, 260});
  focus(field(kField));
  type("For the printer");
  scroll()->setProperty("contentY", 0);
  settle();
  bring({noteBy("n0", "jorvas"), noteBy("n1", "renny"), noteBy("n2", "jorvas")});
  EXPECT_EQ(scroll()->property("contentY"), 0);
}

TEST_F(PanelWords, StayInACheckThatPassed) {
  FileDetail detail = withNotes({noteBy("n1", "renny")}, 2);
  for (const char* id : {"p1", "p2"}) {
    detail.findings.push_back(findingOf(id));
    detail.findings.back().kind = "pass";
    detail.findings.back().title = id;
  }
  detail.comments[0].finding_id = "p1";
  store().details.set({{"t1", detail}});
  settle();
  ASSERT_TRUE(press("2 checks passed"));
  ASSERT_TRUE(press("p1", QAccessible::ListItem));
  edit();
  type("er");
  const QQuickItem* before = keyed();
  ASSERT_TRUE(press("p2", QAccessible::ListItem));
  EXPECT_EQ(keyed(), before);
  EXPECT_TRUE(keyed()->isVisible()) << "its card is not folded over it";
  type("!");
  EXPECT_EQ(textOf(before), "Too darker!");
}

}  // namespace
}  // namespace vellix
