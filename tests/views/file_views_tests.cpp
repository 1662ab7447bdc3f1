// A ticket in the main window: its canvas and its findings, worked as a reviewer would.
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

class FileViews : public ViewTest {
 protected:
  FileViews() {
    serveTheDay();
    showMain({1'500, 940});
    // The panel slides in.
    comes([this] { return reader().find("Page 1", QAccessible::Heading) != nullptr; });
  }
  std::vector<std::string> sent(const std::string& finding) {
    std::vector<std::string> bodies;
    for (const auto* each : desk.http.matching("POST api/findings/" + finding)) {
      bodies.push_back(each->request.body.value_or(""));
    }
    return bodies;
  }
  QStringList cards() {
    QStringList titles;
    for (const QString& name : reader().names(QAccessible::ListItem)) {
      if (name == "A word changed" || name == "A line breaks elsewhere") titles.append(name);
    }
    return titles;
  }
  // Waits for what an animation brings.
  static bool comes(const std::function<bool()>& condition) { return QTest::qWaitFor(condition); }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText); }
};

using Bodies = std::vector<std::string>;

TEST_F(FileViews, StepThroughThePages) {
  EXPECT_EQ(reader().enabled("Previous page"), 0);
  press("Previous page");
  EXPECT_EQ(store().page().at("t1"), 0);
  ASSERT_TRUE(press("Next page"));
  EXPECT_EQ(store().page().at("t1"), 1);
  EXPECT_TRUE(says("p2 · 2 of 3"));
  EXPECT_TRUE(reader().find("Harrow Print file · p2", QAccessible::Grouping));
  ASSERT_TRUE(press("Next page"));
  EXPECT_EQ(reader().enabled("Next page"), 0);
  ASSERT_TRUE(press("Previous page"));
  EXPECT_EQ(store().page().at("t1"), 1);
}

TEST_F(FileViews, StepThroughThePagesByKey) {
  QTest::keyClick(window(), Qt::Key_Down, Qt::ControlModifier);
  settle();
  EXPECT_EQ(store().page().at("t1"), 1);
  QTest::keyClick(window(), Qt::Key_Up, Qt::ControlModifier);
  settle();
  EXPECT_EQ(store().page().at("t1"), 0);
}

TEST_F(FileViews, AskForThePicturesOfThePageOnShow) {
  EXPECT_TRUE(pictures.asked.contains("supplier-0"));
  EXPECT_TRUE(pictures.asked.contains("submitted-0"));
  // The strip asks for the supplier's pictures of all the pages in it.
  EXPECT_FALSE(pictures.asked.contains("submitted-1"));
  ASSERT_TRUE(press("Next page"));
  EXPECT_TRUE(pictures.asked.contains("supplier-1"));
  EXPECT_TRUE(pictures.asked.contains("submitted-1"));
}

TEST_F(FileViews, HideAndShowAPane) {
  ASSERT_TRUE(reader().find("What we sent · p1", QAccessible::Grouping));
  ASSERT_TRUE(press("What we sent", QAccessible::CheckBox));
  EXPECT_FALSE(store().shown().contains("submitted"));
  EXPECT_FALSE(reader().find("What we sent · p1", QAccessible::Grouping));
  EXPECT_FALSE(reader().find("What we sent", QAccessible::CheckBox)->state().checked);
  ASSERT_TRUE(press("What we sent", QAccessible::CheckBox));
  EXPECT_TRUE(store().shown().contains("submitted"));
}

TEST_F(FileViews, SayWhatThereIsNoFileOf) {
  EXPECT_TRUE(says("No FBC for this page"));
  EXPECT_TRUE(says("The sync couldn't find one to compare with."));
}

TEST_F(FileViews, Zoom) {
  EXPECT_EQ(reader().enabled("Zoom out (Ctrl+-)"), 0);
  ASSERT_TRUE(press("Zoom in (Ctrl++)"));
  EXPECT_EQ(store().zoom(), 1.25);
  EXPECT_EQ(reader().enabled("Zoom out (Ctrl+-)"), 1);
  ASSERT_TRUE(press("125%"));
  EXPECT_EQ(store().zoom(), 1);
  QTest::keyClick(window(), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.25);
  QTest::keyClick(window(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1);
}

TEST_F(FileViews, CloseAndOpenTheNotesPanel) {
  ASSERT_TRUE(reader().find("Page 1", QAccessible::Heading));
  ASSERT_TRUE(press("Hide the notes panel (Ctrl+Alt+I)"));
  EXPECT_FALSE(store().prefs.showNotes());
  EXPECT_TRUE(comes([this] { return !reader().find("Page 1", QAccessible::Heading); }));
  ASSERT_TRUE(press("Show the notes panel (Ctrl+Alt+I)"));
  EXPECT_TRUE(store().prefs.showNotes());
}

TEST_F(FileViews, FloatTheNotesPanelInASmallWindow) {
  resize({760, 540});
  EXPECT_TRUE(store().notesFloat());
  EXPECT_TRUE(comes([this] { return cards().isEmpty(); }));
  ASSERT_TRUE(press("Show the notes panel (Ctrl+Alt+I)"));
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_TRUE(comes([this] { return cards().size() == 2; })) << "it slides in";
}

TEST_F(FileViews, DecideAFinding) {
  EXPECT_EQ(cards(), (QStringList{"A word changed", "A line breaks elsewhere"}));
  EXPECT_TRUE(says("Words · vs what we sent"));
  ASSERT_TRUE(press("Real issue"));
  EXPECT_EQ(sent("f1"), Bodies{R"({"state":"issue"})"});
  EXPECT_EQ(cards(), QStringList{"A line breaks elsewhere"});
  EXPECT_TRUE(reader().find("A word changed", QAccessible::Button)) << "folded to a line";
  ASSERT_TRUE(press("Fine"));
  EXPECT_EQ(sent("f2"), Bodies{R"({"state":"fine"})"});
}

TEST_F(FileViews, TellBothWordings) {
  FileDetail detail = lighthouse();
  detail.findings[0].before = "light";
  store().details.set({{"t1", detail}});
  settle();
  EXPECT_TRUE(says("What we sent"));
  EXPECT_TRUE(says("light"));
  EXPECT_TRUE(says("Harrow Print file"));
  EXPECT_TRUE(says("(nothing)"));
}

TEST_F(FileViews, OpenADecidedFindingAgain) {
  ASSERT_TRUE(press("Fine"));
  ASSERT_TRUE(press("A word changed"));
  EXPECT_EQ(cards(), (QStringList{"A line breaks elsewhere", "A word changed"}));
}

TEST_F(FileViews, ShowADecisionAtOnceAndThatItIsLongOnItsWayAndThenUndo) {
  store().prefs.foldDecided.set(false);
  ASSERT_TRUE(press("Fine"));
  EXPECT_EQ(cards(), (QStringList{"A line breaks elsewhere", "A word changed"}));
  EXPECT_EQ(reader().enabled("Fine"), 2) << "nobody is held up";
  EXPECT_TRUE(comes([this] { return reader().find("Working", QAccessible::Animation); }));
  desk.http.answer(*desk.http.matching("POST api/findings/f1").at(0), answerOf(200, "{}"));
  settle();
  EXPECT_FALSE(reader().find("Working", QAccessible::Animation));
  ASSERT_TRUE(comes([this] { return reader().find("Undo", QAccessible::Button); }));
  ASSERT_TRUE(press("Undo"));
  EXPECT_EQ(sent("f1"), (Bodies{R"({"state":"fine"})", R"({"state":"open"})"}));
}

TEST_F(FileViews, FocusAFindingByItsCard) {
  ASSERT_TRUE(press("A line breaks elsewhere", QAccessible::ListItem));
  EXPECT_EQ(store().focus(), "f2");
  EXPECT_TRUE(reader().find("A line breaks elsewhere", QAccessible::ListItem)->state().selected);
  ASSERT_TRUE(press("A line breaks elsewhere", QAccessible::ListItem));
  EXPECT_FALSE(store().focus());
}

TEST_F(FileViews, GoToAPageThatWaits) {
  EXPECT_TRUE(reader().find("Still open on other pages", QAccessible::Heading));
  EXPECT_TRUE(says("1 to look at"));
  ASSERT_TRUE(press("Page 3"));
  EXPECT_EQ(store().page().at("t1"), 2);
}

}  // namespace
}  // namespace vellix
