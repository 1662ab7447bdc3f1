// The numbers of notes, which are the same on the page and in the panel.
#include "notes/note_numbers.hpp"

#include "compare/page_marks.hpp"
#include "inspector/findings_panel.hpp"
#include "notes/notes_test.hpp"

namespace vellix {
namespace {

using Numbers = std::map<std::string, Int>;

class NoteNumbers : public NotesTest {
 protected:
  NoteNumbers() {
    detail.findings = {findingOf("f1")};
    Note ours = placed("ours");
    ours.side = "ours";
    Note onFinding = placed("on a finding");
    onFinding.finding_id = "f1";
    Note resolved = placed("resolved");
    resolved.resolved = 1;
    Note emptyFinding = placed("on no finding");
    emptyFinding.finding_id = "";
    detail.comments = {noteOn("unplaced"),
                       ours,
                       onFinding,
                       resolved,
                       placed("plain"),
                       emptyFinding,
                       placed("elsewhere", 1),
                       noteOn("no page", std::nullopt)};
    show();
  }
  static Note placed(std::string id, Int page = 0) {
    Note note = noteOn(std::move(id), page);
    note.x = 0.5;
    note.y = 0.5;
    return note;
  }
  // By id, of all that is drawn on the page.
  Numbers onPage() {
    Numbers all;
    for (const std::optional<std::string>& role :
         {std::optional<std::string>{}, std::optional<std::string>{"submitted"}}) {
      const auto marks =
          marksOf(store(), detail, detail.file.pages->front(), 0, role, {"submitted"});
      for (const auto& mark : marks.notes) all[mark.key] = mark.number;
    }
    return all;
  }
  // Of all that is read in the panel.
  Numbers inPanel() {
    Numbers all;
    const auto add = [&](const std::vector<NoteRowView>& rows) {
      for (const auto& row : rows) all[row.id] = row.number;
    };
    const Moment now = desk.time.now();
    add(pageNotes(store(), detail, 0, now, desk.calendar));
    store().shown.set({"supplier", "submitted", "third"});
    detail.file.pages->front().refs = {{"submitted", RefPage{.img = "blob"}}};
    for (const auto& card : findingsPanel(store(), detail, now, desk.calendar).cards) {
      add(card.notes);
    }
    return all;
  }
};

TEST_F(NoteNumbers, CountTheOpenOnesOfAPage) {
  EXPECT_EQ(noteNumbers(detail), (std::vector<Int>{1, 2, 3, 0, 4, 5, 1, 0}));
  EXPECT_EQ(noteNumbers({}), std::vector<Int>{});
}

TEST_F(NoteNumbers, AreTheSameOnThePageAndInThePanel) {
  const Numbers panel{{"unplaced", 1}, {"ours", 2},  {"on a finding", 3},
                      {"resolved", 0}, {"plain", 4}, {"on no finding", 5}};
  EXPECT_EQ(inPanel(), panel);
  const auto marks = onPage();
  EXPECT_EQ(marks.size(), 4U);
  for (const auto& [id, number] : marks) EXPECT_EQ(number, panel.at(id)) << id;
}

TEST_F(NoteNumbers, MoveUpWhenOneIsResolved) {
  detail.comments[0].resolved = 1;
  EXPECT_EQ(onPage(),
            (Numbers{{"ours", 1}, {"on a finding", 2}, {"plain", 3}, {"on no finding", 4}}));
  EXPECT_EQ(inPanel().at("plain"), 3);
}

}  // namespace
}  // namespace vellix
