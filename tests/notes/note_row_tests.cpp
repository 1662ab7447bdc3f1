// What a note's row tells, and what is asked of it.
#include "notes/note_row.hpp"

#include "notes/notes_test.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class NoteRows : public NotesTest {
 protected:
  NoteRows() { show(); }

  // "{number} {id}" of each row of the page.
  Lines rows(Int page = 0) {
    Lines all;
    for (const auto& each : pageNotes(store(), detail, page, desk.time.now(), desk.calendar)) {
      all.push_back(std::to_string(each.number) + " " + each.id);
    }
    return all;
  }
};

TEST_F(NoteRows, TellWhoWroteWhatAndWhen) {
  Note note = noteOn("n1");
  note.at = wireOf(desk.time.now()) - 300'000;
  const auto view = row(note, 3);
  EXPECT_EQ(view.id, "n1");
  EXPECT_EQ(view.number, 3);
  EXPECT_EQ(view.name, "Jorvas");
  EXPECT_EQ(view.when, "5 min ago");
  EXPECT_EQ(view.text, "Too dark");
  EXPECT_EQ(view.who, avatarOf(kJorvas, store()));
  EXPECT_EQ(view.spoken, "Note 3, Jorvas, 5 min ago");
  EXPECT_FALSE(view.busy);
  EXPECT_TRUE(view.tags.empty());
}

TEST_F(NoteRows, CallPeopleAsTheReaderDoes) {
  struct Case {
    std::string by;
    std::string name;
  };
  for (const auto& each :
       {Case{kRenny, "You"}, Case{"gone@tessarine.example", "Gone"}, Case{"", "Claude"}}) {
    SCOPED_TRACE(each.by);
    Note note = noteOn("n1");
    note.by = each.by;
    EXPECT_EQ(row(note).name, each.name);
  }
}

TEST_F(NoteRows, OfferToResolveAndToReopen) {
  struct Case {
    std::optional<Int> resolved;
    std::optional<std::string> by;
    bool is;
    std::string help;
  };
  for (const auto& each :
       {Case{std::nullopt, std::nullopt, false, "Resolve"}, Case{0, kRenny, false, "Resolve"},
        Case{1, kRenny, true, "Resolved by You. Reopen it."},
        Case{-7, "gone@x.example", true, "Resolved by Gone. Reopen it."},
        Case{1, std::nullopt, true, "Resolved by Claude. Reopen it."}}) {
    Note note = noteOn("n1");
    note.resolved = each.resolved;
    note.resolved_by = each.by;
    EXPECT_EQ(row(note).resolved, each.is);
    EXPECT_EQ(row(note).resolveHelp, each.help);
    EXPECT_EQ(row(note).spoken.starts_with("Resolved note, "), each.is);
  }
}

TEST_F(NoteRows, AreMineWhereIWroteThem) {
  Note note = noteOn("n1");
  EXPECT_FALSE(row(note).mine);
  note.by = kRenny;
  EXPECT_TRUE(row(note).mine);
  store().board.set(std::nullopt);
  EXPECT_FALSE(row(note).mine) << "nobody is signed in";
  note.by = "";
  EXPECT_FALSE(row(note).mine);
}

TEST_F(NoteRows, AreEditedWhereTheyAreMineAndShownWhole) {
  struct Case {
    std::string by;
    std::string text;
    bool editable;
  };
  std::string accents;
  for (int i = 0; i < 20'000; ++i) accents += "\u00e9";
  for (const auto& each :
       {Case{kRenny, "Too dark", true}, Case{kJorvas, "Too dark", false},
        Case{kRenny, std::string(20'000, 'a'), true}, Case{kRenny, std::string(20'001, 'a'), false},
        Case{kRenny, accents, true}, Case{kRenny, accents + "a", false}}) {
    SCOPED_TRACE(each.by + ", " + std::to_string(each.text.size()) + " bytes");
    Note note = noteOn("n1");
    note.by = each.by;
    note.text = each.text;
    EXPECT_EQ(row(note).editable, each.editable);
    EXPECT_EQ(row(note).text, each.text) << "kept whole";
    EXPECT_EQ(row(note).mine, each.by == kRenny) << "it may still be deleted";
  }
}

TEST_F(NoteRows, StandOutWhereTheyTagMe) {
  Note note = noteOn("n1");
  note.tags = std::vector<std::string>{kJorvas};
  EXPECT_FALSE(row(note).tagged);
  note.tags->push_back(kRenny);
  EXPECT_TRUE(row(note).tagged);
  ASSERT_EQ(row(note).tags.size(), 2U);
  EXPECT_EQ(row(note).tags[0], (TagChipView{kJorvas, "Jorvas Lind", "#1a84f0"}));
}

TEST_F(NoteRows, AreBusyWhileTheyAreChanged) {
  const Note note = noteOn("n1");
  store().busy.set({"n-n10", "note", "n1"});
  EXPECT_FALSE(row(note).busy);
  store().busy.set({"n-n1"});
  EXPECT_TRUE(row(note).busy);
}

TEST_F(NoteRows, OfAPageAreNumberedByWhatIsOpen) {
  Note resolved = noteOn("n2");
  resolved.resolved = 1;
  Note onFinding = noteOn("n3");
  onFinding.finding_id = "f1";
  detail.comments = {noteOn("n1"),    resolved,     onFinding,
                     noteOn("n4", 1), noteOn("n5"), noteOn("n6", std::nullopt)};
  detail.comments[0].at = 2'000;
  detail.comments[4].at = 1'000;
  EXPECT_EQ(rows(), (Lines{"1 n1", "0 n2", "3 n5"})) << "in the service's order";
  EXPECT_EQ(rows(1), Lines{"1 n4"});
  EXPECT_EQ(rows(2), Lines{});
}

TEST_F(NoteRows, SendTheOppositeOfTheirState) {
  Note note = noteOn("n1");
  Note done = noteOn("n2");
  done.resolved = 1;
  detail.comments = {note, done};
  show();
  toggleResolved(store(), "n1");
  toggleResolved(store(), "n2");
  toggleResolved(store(), "n9");
  EXPECT_EQ(sent(), (Lines{R"(POST api/comments/n1 {"resolved":true})",
                           R"(POST api/comments/n2 {"resolved":false})"}));
}

TEST_F(NoteRows, SendATextAsItWasWritten) {
  detail.comments = {noteOn("n1")};
  show();
  saveNote(store(), "n1", " Much\ndarker ");
  EXPECT_EQ(sent(), Lines{R"(POST api/comments/n1 {"text":" Much\ndarker "})"});
  EXPECT_TRUE(store().busy().contains("n-n1"));
}

TEST_F(NoteRows, HoldRoomForTheLongestNumberThatTheirPageMayHave) {
  const auto digits = [this] {
    std::set<std::string> all;
    for (const auto& each : pageNotes(store(), detail, 0, desk.time.now(), desk.calendar)) {
      all.insert(each.digits);
    }
    return all;
  };
  for (int i = 1; i <= 9; ++i) detail.comments.push_back(noteOn("n" + std::to_string(i)));
  detail.comments.push_back(noteOn("m1", 1));
  EXPECT_EQ(digits(), std::set<std::string>{"0"});
  detail.comments.push_back(noteOn("n10"));
  EXPECT_EQ(digits(), std::set<std::string>{"00"});
  for (Note& note : detail.comments) {
    note.resolved = 1;
    EXPECT_EQ(digits(), std::set<std::string>{"00"}) << "nothing moves";
  }
}

TEST_F(NoteRows, SendTheirEnd) {
  detail.comments = {noteOn("n1")};
  show();
  removeNote(store(), "n1");
  EXPECT_EQ(sent(), Lines{R"(POST api/comments/n1 {"deleted":true})"});
}

TEST_F(NoteRows, TakeOnlyANewTextWhileTheyAreChanged) {
  detail.comments = {noteOn("n1")};
  show();
  store().busy.set({"n-n1"});
  toggleResolved(store(), "n1");
  removeNote(store(), "n1");
  EXPECT_EQ(sent(), Lines{});
  saveNote(store(), "n1", "Darker");
  EXPECT_EQ(sent().size(), 1U);
}

TEST_F(NoteRows, AskNothingWithoutATicket) {
  store().selection.set({});
  toggleResolved(store(), "n1");
  saveNote(store(), "n1", "Darker");
  removeNote(store(), "n1");
  EXPECT_EQ(sent(), Lines{});
}

}  // namespace
}  // namespace vellix
