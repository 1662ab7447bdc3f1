// What opens and goes beside the page and over it.
#include "store/store_test.hpp"

namespace vellix {
namespace {

class Toasts : public StoreTest {};

TEST_F(Toasts, UndoRunsOnceAndTakesTheToastAwayAtOnce) {
  int undone = 0;
  store().toast.set(Toast{"Marked fine.", "Undo", [&] { ++undone; }});
  store().undoToast();
  EXPECT_EQ(undone, 1);
  EXPECT_FALSE(store().toast());
  store().undoToast();
  EXPECT_EQ(undone, 1);
}

TEST_F(Toasts, UndoOfAToastWithoutOneTakesItAway) {
  store().toast.set(Toast{"Up to date."});
  store().undoToast();
  EXPECT_FALSE(store().toast());
}

TEST_F(Toasts, UndoKeepsTheToastItBrings) {
  store().toast.set(
      Toast{"Marked fine.", "Undo", [this] { store().toast.set(Toast{"Reopened."}); }});
  store().undoToast();
  EXPECT_EQ(desk.toastText(), "Reopened.");
}

TEST_F(Toasts, AreDismissedOneByOne) {
  store().toast.set(Toast{"First."});
  const auto first = store().toast()->id;
  store().toast.set(Toast{"Second."});
  store().dismissToast(first);
  EXPECT_EQ(desk.toastText(), "Second.") << "another has come";
  store().dismissToast(store().toast()->id);
  EXPECT_FALSE(store().toast());
  store().dismissToast(first);
}

struct NotesCase {
  const char* name;
  bool docked;
  bool floats;
  bool drawer;
  bool open;
};
BOOST_DESCRIBE_STRUCT(NotesCase, (), (name, docked, floats, drawer, open))

class NotesPanels : public StoreTest, public testing::WithParamInterface<NotesCase> {};

TEST_P(NotesPanels, AreOpenWhereTheyStand) {
  store().prefs.showNotes.set(GetParam().docked);
  store().setNotesFloat(GetParam().floats);
  store().notesDrawer.set(GetParam().drawer);
  EXPECT_EQ(store().notesOpen(), GetParam().open);
  store().toggleNotes();
  EXPECT_NE(store().notesOpen(), GetParam().open);
}

INSTANTIATE_TEST_SUITE_P(All, NotesPanels,
                         testing::Values(NotesCase{"Docked", true, false, false, true},
                                         NotesCase{"DockedAway", false, false, true, false},
                                         NotesCase{"Floating", false, true, true, true},
                                         NotesCase{"FloatingAway", true, true, false, false}),
                         [](const auto& each) { return each.param.name; });

TEST_F(StoreTest, FlipsAndKeepsTheDockedNotesPanel) {
  store().toggleNotes();
  EXPECT_FALSE(store().prefs.showNotes());
  EXPECT_FALSE(desk.defaults.flags.at("ShowNotes"));
  EXPECT_FALSE(store().notesDrawer());
  store().toggleNotes();
  EXPECT_TRUE(store().prefs.showNotes());
  EXPECT_TRUE(desk.defaults.flags.at("ShowNotes"));
}

TEST_F(StoreTest, FlipsTheDrawerWhereNotesFloat) {
  store().notesFloat.set(true);
  store().toggleNotes();
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_TRUE(store().prefs.showNotes());
  EXPECT_FALSE(desk.defaults.flags.contains("ShowNotes"));
  store().toggleNotes();
  EXPECT_FALSE(store().notesDrawer());
}

TEST_F(StoreTest, OpensAndClosesTheActivity) {
  store().setShowActivity(true);
  EXPECT_TRUE(store().showActivity());
  store().setShowActivity(false);
  EXPECT_FALSE(store().showActivity());
}

class SideTabs : public StoreTest {};

TEST_F(SideTabs, AreTurnedToAndStayForTheNextTicket) {
  int told = 0;
  const auto watching = store().changes.observe(Store::kPanels, [&] { ++told; });
  store().setSideTab("history");
  store().select({"t2"});
  desk.time.run();
  EXPECT_EQ(store().sideTab(), "history");
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace vellix
