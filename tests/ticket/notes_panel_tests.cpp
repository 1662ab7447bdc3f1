// Where the notes panel stands, and whether.
#include "ticket/notes_panel.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

struct Notes {
  const char* name;
  bool floats;
  bool drawer;
  bool pref;
  bool open;
};
BOOST_DESCRIBE_STRUCT(Notes, (), (name, floats, drawer, pref, open))

class NotesPanelViews : public StoreTest, public testing::WithParamInterface<Notes> {};

TEST_P(NotesPanelViews, AreOpenByTheDrawerOrThePreference) {
  const auto& each = GetParam();
  store().notesFloat.set(each.floats);
  store().notesDrawer.set(each.drawer);
  store().prefs.showNotes.set(each.pref);
  const auto notes = notesPanel(store(), 1'000);
  EXPECT_EQ(notes.open, each.open);
  EXPECT_EQ(notes.floats, each.floats);
  EXPECT_EQ(notes.help,
            each.open ? "Hide the notes panel (Ctrl+Alt+I)" : "Show the notes panel (Ctrl+Alt+I)");
}

INSTANTIATE_TEST_SUITE_P(All, NotesPanelViews,
                         testing::Values(Notes{"DockedAndOn", false, false, true, true},
                                         Notes{"DockedAndOff", false, true, false, false},
                                         Notes{"FloatingAndOut", true, true, false, true},
                                         Notes{"FloatingAndIn", true, false, true, false}),
                         [](const auto& each) { return each.param.name; });

struct Room {
  double width;
  bool floats;
  double panel;
};
BOOST_DESCRIBE_STRUCT(Room, (), (width, floats, panel))

class NotesRooms : public StoreTest, public testing::WithParamInterface<Room> {};

TEST_P(NotesRooms, SetTheWidthOfThePanel) {
  store().notesFloat.set(notesFloat(GetParam().width));
  EXPECT_EQ(store().notesFloat(), GetParam().floats);
  EXPECT_EQ(notesPanel(store(), GetParam().width).width, GetParam().panel);
}

INSTANTIATE_TEST_SUITE_P(All, NotesRooms,
                         testing::Values(Room{300, true, 260}, Room{360, true, 320},
                                         Room{899, true, 320}, Room{900, false, 290},
                                         Room{1'099, false, 290}, Room{1'100, false, 330}));

}  // namespace
}  // namespace vellix
