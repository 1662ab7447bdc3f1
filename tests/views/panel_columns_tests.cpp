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
  // Or not any more.
  void tag(const char* name) {
    ASSERT_TRUE(press("Tag people"));
    ASSERT_TRUE(comes([&] { return offers(name); }));
    ASSERT_TRUE(press(name, QAccessible::MenuItem));
    key(Qt::Key_Escape);
    ASSERT_TRUE(comes([&] { return !offers(name); }));
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

TEST_F(PanelColumns, StayWhereOneOfTenNotesIsResolved) {
  for (const char* finding : {"", "f1"}) {
    std::vector<Note> notes;
    for (int i = 0; i < 10; ++i) {
      notes.push_back(noteBy(std::string{"m"} + finding + std::to_string(i), "jorvas"));
      if (*finding) notes.back().finding_id = finding;
    }
    bring(notes, 4);
    ASSERT_EQ(rows().size(), 10);
    const auto places = [this] {
      std::set<double> all;
      for (const QQuickItem* row : rows()) {
        for (const QQuickItem* badge : seen(row, "CountBadge")) {
          all.insert(placeOf(badge).center().x());
        }
      }
      return all;
    };
    const Columns before = columns(rows());
    const auto numbers = places();
    for (Note& note : notes) {
      note.resolved = 1;
      bring(notes, 5);
      const Columns now = columns(rows());
      EXPECT_EQ(now.faces, before.faces) << finding << " without " << note.id;
      EXPECT_EQ(now.names, before.names) << finding << " without " << note.id;
      EXPECT_EQ(now.texts, before.texts) << finding << " without " << note.id;
      EXPECT_TRUE(places().empty() || places() == numbers) << finding << " without " << note.id;
    }
  }
}

TEST_F(PanelColumns, NameWhoeverIsTaggedBesideWhatPosts) {
  store().board.edit([](std::optional<BoardState>& board) {
    board->users.push_back({.email = "mara@tessarine.example", .name = "Mara Quellworth"});
  });
  for (const int width : {290, 320}) {
    resize({width, 2'000});
    focus(field(kField));
    const auto hint = [this] { return seenText(window()->contentItem(), "Ctrl+Return to post"); };
    EXPECT_TRUE(hint()) << width;
    for (const char* name : {"Jorvas", "Mara"}) tag(name);
    const QQuickItem* composer = seen(window()->contentItem(), "Composer").constFirst();
    const auto chips = [&] {
      QList<QRectF> places;
      for (const QQuickItem* chip : seen(composer, "TagChip")) {
        const QQuickItem* words = seen(chip, "Label").constFirst();
        EXPECT_FALSE(words->property("truncated").toBool()) << width;
        places.append(placeOf(chip));
      }
      return places;
    };
    const auto before = chips();
    ASSERT_EQ(before.size(), 2) << width;
    const QRectF post = placeOf(item("Post"));
    store().busy.set({"note"});
    settle();
    EXPECT_EQ(placeOf(item("Posting…")), post) << width;
    EXPECT_EQ(chips(), before) << width;
    store().busy.set({});
    settle();
    focus(field(kField));
    for (const char* letter : {"a", " ", "b"}) {
      type(letter);
      EXPECT_EQ(chips(), before) << width;
      EXPECT_EQ(placeOf(item("Post")), post) << width;
    }
    const QQuickItem* words = hint();
    for (const QRectF& chip : before) {
      EXPECT_FALSE(words && placeOf(words).intersects(chip)) << width;
      EXPECT_FALSE(post.intersects(chip)) << width;
    }
    // As it was.
    for (const char* name : {"Jorvas", "Mara"}) tag(name);
    EXPECT_TRUE(hint()) << width;
  }
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
