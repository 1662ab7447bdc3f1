// Words that the service left out may come empty or as blanks: the screen is the same.
#include <functional>

#include "board/activity.hpp"
#include "board/assign_button.hpp"
#include "board/due_button.hpp"
#include "board/file_row.hpp"
#include "board/sync_card.hpp"
#include "compare/canvas_view.hpp"
#include "inspector/findings_panel.hpp"
#include "jobs/report_area.hpp"
#include "notes/note_row.hpp"
#include "store/people.hpp"
#include "store/store_test.hpp"
#include "ticket/file_header.hpp"
#include "ticket/multi_view.hpp"

namespace vellix {
namespace {

using Words = std::optional<std::string>;

const std::string kGuest = "guest@elsewhere.example";
const std::string kJorvas = "jorvas@tessarine.example";

struct Field {
  const char* name;
  std::function<Words&(BoardState&, FileDetail&)> of;
  const char* filled = "Words";
};
BOOST_DESCRIBE_STRUCT(Field, (), (name, filled))

class AbsentWords : public StoreTest, public testing::WithParamInterface<Field> {
 protected:
  static FileDetail ticket() {
    FileDetail detail = detailOf(ticketOf("t1", "reviewed"));
    FileItem& file = detail.file;
    file.title = "The Lighthouse";
    file.due = 1'700'000'000'000;
    file.refs = {{.role = "submitted"}};
    file.pages = pagesOf(1);
    // Neither the page of ours nor the third has a picture; the last print has one.
    file.pages->front().refs = {{"submitted", {}}, {"latest", RefPage{.img = "blob"}}};
    detail.findings = {findingOf("f1")};
    detail.findings[0].state = "fine";
    Note note;
    note.id = "n1";
    note.page = 0;
    note.by = kJorvas;
    note.resolved = 1;
    detail.comments = {note};
    return detail;
  }
  static BoardState board() {
    BoardState board = boardOf({});
    board.guests = {{Guest{.email = kGuest}}};
    board.sync = jobOf("running", "sync");
    board.reports = {{.id = "r1", .file_ids = {"t1"}}};
    board.events = {{.id = 2, .by = kJorvas, .kind = "finding", .file_id = "t1"},
                    {.id = 1, .by = kJorvas, .kind = "riddle"}};
    return board;
  }

  // All that is shown of a ticket that is reviewed, or of one without a title that waits, with
  // these words in the field.
  auto screen(const Words& words, bool reviewed) {
    BoardState all = board();
    FileDetail detail = ticket();
    if (!reviewed) {
      detail.file.title.reset();
      detail.file.status = "new";
    }
    GetParam().of(all, detail) = words;
    all.files = {detail.file};
    store().board.set(all);
    store().details.set({{"t1", detail}});
    store().selection.set({"t1"});
    store().focus.set("f1");
    const Moment now = desk.time.now();
    auto canvas = canvasView(store(), detail);
    auto panel = findingsPanel(store(), detail, now, desk.calendar);
    return std::tuple{fileRow(detail.file, store(), now, desk.calendar),
                      fileHeader(store(), detail.file, &detail, now, desk.calendar),
                      std::move(canvas.panes),
                      std::move(canvas.toggles),
                      std::move(canvas.bar),
                      std::move(canvas.loupe),
                      std::move(panel.cards),
                      pageNotes(store(), detail, 0, now, desk.calendar),
                      activity(store(), now, desk.calendar),
                      syncCard(store()),
                      dueButton(store(), detail.file, now, desk.calendar),
                      assignButton(store(), detail.file),
                      reportArea(store(), now, desk.calendar),
                      displayName(store(), kGuest),
                      avatarOf(kGuest, store())};
  }
};

TEST_P(AbsentWords, MayBeSentEmpty) {
  bool shown = false;
  for (const bool reviewed : {true, false}) {
    const auto absent = screen(std::nullopt, reviewed);
    EXPECT_TRUE(screen("", reviewed) == absent);
    EXPECT_TRUE(screen(" \t ", reviewed) == absent);
    shown |= !(screen(GetParam().filled, reviewed) == absent);
  }
  EXPECT_TRUE(shown) << "where they are there";
}

// Spells the way to a field of the ticket, and to others.
#define OF(path) [](BoardState&, FileDetail& detail) -> Words& { return detail.path; }
#define ON_BOARD(path) [](BoardState& board, FileDetail&) -> Words& { return board.path; }

INSTANTIATE_TEST_SUITE_P(
    All, AbsentWords,
    testing::Values(
        Field{"Title", OF(file.title)}, Field{"Component", OF(file.component)},
        Field{"Filename", OF(file.filename)}, Field{"Po", OF(file.po)},
        Field{"Supplier", OF(file.supplier)}, Field{"Sender", OF(file.sender)},
        Field{"Summary", OF(file.summary)}, Field{"Reviewer", OF(file.status_by)},
        Field{"Assignee", OF(file.assignee)}, Field{"WhoSetTheDate", OF(file.due_by)},
        Field{"Approval", OF(file.approval)},
        Field{"NoteOfAReference", OF(file.refs->front().note)},
        Field{"LinkOfAReference", OF(file.refs->front().link), "https://a.example/"},
        Field{"NameOfAPage", OF(file.pages->front().label)},
        Field{"NameOfAReferencesPage", OF(file.pages->front().refs->at("latest").label)},
        Field{"DetailOfAFinding", OF(findings[0].detail)}, Field{"Before", OF(findings[0].before)},
        Field{"After", OF(findings[0].after)}, Field{"WhoDecided", OF(findings[0].state_by)},
        Field{"WhoResolved", OF(comments[0].resolved_by)},
        Field{"FindingOfANote", OF(comments[0].finding_id), "f1"},
        Field{"Step", ON_BOARD(sync->step)}, Field{"Event", ON_BOARD(events[0].text)},
        Field{"RiddleOfAnEvent", ON_BOARD(events[1].text)},
        Field{"WhoActed", ON_BOARD(events[0].by)}, Field{"WhoMadeAReport", ON_BOARD(reports[0].by)},
        Field{"NameOfAGuest", ON_BOARD(guests->front().name)}),
    [](const auto& each) { return each.param.name; });

#undef OF
#undef ON_BOARD

}  // namespace
}  // namespace vellix
