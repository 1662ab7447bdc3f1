// What stands below one another in the panel stands in one column, and what stands beside one
// another is equally high.
#include <set>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

class PanelColumns : public NotesViewTest {
 protected:
  PanelColumns() {
    serveTheDay();
    store().details.set({{"t1", withNotes({noteBy("n1", "renny")})}});
    desk.time.run();
    show("Inspector/Inspector",
         {{"inspector", models()["inspector"]},
          {"notes", models()["notes"]},
          {"history", models()["history"]},
          {"pictures", models()["pictures"]}},
         {320, 2'000});
    calm();
  }
  // Mine and others', resolved, and one that tags who is signed in.
  static std::vector<Note> notesOfAllKinds(const std::string& finding = {}) {
    std::vector<Note> notes{noteBy("a", "renny"), noteBy("b", "jorvas"), noteBy("c", "renny"),
                            noteBy("d", "jorvas")};
    notes[1].tags = std::vector<std::string>{"renny@tessarine.example"};
    notes[2].resolved = 1;
    notes[3].resolved = 1;
    for (Note& note : notes) {
      note.id += finding;
      if (!finding.empty()) note.finding_id = finding;
    }
    return notes;
  }
  static QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene(item->boundingRect());
  }
  QList<QQuickItem*> rows() { return seen(window()->contentItem(), "NoteRow"); }
  // Where the parts of these rows begin, each place once.
  struct Columns {
    std::set<double> faces, names, resolves, menus, texts;
  };
  static Columns columns(const QList<QQuickItem*>& rows) {
    Columns all;
    for (const QQuickItem* row : rows) {
      all.faces.insert(placeOf(seen(row, "Avatar").constFirst()).x());
      all.names.insert(placeOf(seen(row, "FlowRow").constFirst()).x());
      const auto buttons = seen(row, "IconButton");
      all.resolves.insert(placeOf(buttons[0]).x());
      if (buttons.size() > 1) all.menus.insert(placeOf(buttons[1]).x());
      all.texts.insert(placeOf(seenText(row, "Too dark")).x());
    }
    return all;
  }
  static void expectOneOfEach(const Columns& all) {
    EXPECT_EQ(all.faces.size(), 1U);
    EXPECT_EQ(all.names.size(), 1U);
    EXPECT_EQ(all.resolves.size(), 1U);
    EXPECT_EQ(all.menus.size(), 1U);
    EXPECT_EQ(all.texts.size(), 1U);
    EXPECT_EQ(all.names, all.texts);
  }
};

TEST_F(PanelColumns, AreSharedByTheNotesOfAPage) {
  bring(notesOfAllKinds());
  ASSERT_EQ(rows().size(), 4);
  const Columns before = columns(rows());
  expectOneOfEach(before);
  std::vector<Note> done = notesOfAllKinds();
  for (Note& note : done) note.resolved = 1;
  bring(done, 3);
  EXPECT_EQ(columns(rows()).faces, before.faces) << "nothing moves where a note is resolved";
}

TEST_F(PanelColumns, HoldRoomForNumbersOfTwoDigits) {
  std::vector<Note> notes = notesOfAllKinds();
  for (int i = 0; i < 9; ++i) notes.push_back(noteBy("m" + std::to_string(i), "jorvas"));
  bring(notes);
  ASSERT_EQ(rows().size(), 13);
  expectOneOfEach(columns(rows()));
  int numbered = 0;
  std::set<double> middles;
  for (const QQuickItem* row : rows()) {
    for (const QQuickItem* badge : seen(row, "CountBadge")) {
      EXPECT_LE(placeOf(badge).right() + 6, placeOf(seen(row, "Avatar").constFirst()).x());
      EXPECT_GE(placeOf(badge).x(), row->mapToScene({0, 0}).x());
      middles.insert(placeOf(badge).center().x());
      ++numbered;
    }
  }
  EXPECT_EQ(numbered, 11);
  EXPECT_EQ(middles.size(), 1U);
}

TEST_F(PanelColumns, AreSharedByTheNotesOfAFinding) {
  bring(notesOfAllKinds("f1"));
  ASSERT_EQ(rows().size(), 4);
  expectOneOfEach(columns(rows()));
}

TEST_F(PanelColumns, PadATaggedNoteByEightOnAllSides) {
  bring(notesOfAllKinds());
  const QQuickItem* row = rows()[1];
  const QQuickItem* ground = seen(row, "QQuickRectangle").constFirst();
  ASSERT_GT(colourOf(ground).alpha(), 0);
  const QQuickItem* within = seen(row, "QQuickColumn").constFirst();
  EXPECT_EQ(placeOf(within).adjusted(-8, -8, 8, 8), placeOf(ground));
  EXPECT_TRUE(QRectF(0, 0, 320, 2'000).contains(placeOf(ground)));
}

TEST_F(PanelColumns, SetDecisionsAndTheNoteButtonEquallyHigh) {
  const QQuickItem* card = seen(window()->contentItem(), "FindingCard").constFirst();
  const auto decisions = seen(card, "StateButton");
  const QQuickItem* note = seen(card, "IconButton").constFirst();
  ASSERT_EQ(decisions.size(), 2);
  for (const QQuickItem* each : decisions) {
    EXPECT_EQ(placeOf(each).top(), placeOf(note).top());
    EXPECT_EQ(placeOf(each).bottom(), placeOf(note).bottom());
  }
  focus(field(kField));
  EXPECT_EQ(item("Tag people")->height(), item("Post")->height());
}

TEST_F(PanelColumns, HoldRoomForEveryPress) {
  bring(notesOfAllKinds());
  focus(field(kField));
  int pressed = 0;
  for (const QQuickItem* each : seen(window()->contentItem(), "Pressable")) {
    EXPECT_GE(each->width(), 24) << each->property("label").toString().toStdString();
    EXPECT_GE(each->height(), 24) << each->property("label").toString().toStdString();
    ++pressed;
  }
  EXPECT_GT(pressed, 10);
}

}  // namespace
}  // namespace vellix
