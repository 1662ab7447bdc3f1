// Which findings and notes lie on which pane, and how they are told.
#include "compare/page_marks.hpp"

#include "compare/canvas_view.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Texts = std::vector<std::string>;
using Role = std::optional<std::string>;

class PageMarks : public StoreTest {
 protected:
  PageMarks() {
    store().board.set(boardOf({}));
    detail.file.pages = pagesOf(3);
    (*detail.file.pages)[1].label = "iv";
  }
  PaneMarks on(const Role& role, const Texts& roles = {"submitted", "fbc"}) {
    return marksOf(store(), detail, (*detail.file.pages)[1], 1, role, roles);
  }
  Texts findingsOn(const Role& role, const Texts& roles = {"submitted", "fbc"}) {
    Texts ids;
    for (const auto& box : on(role, roles).boxes) ids.push_back(box.finding);
    return ids;
  }
  void find(std::string id, std::string against, std::string kind = "words", Int page = 1) {
    Finding finding = findingOf(std::move(id), page);
    finding.against = std::move(against);
    finding.kind = std::move(kind);
    detail.findings.push_back(std::move(finding));
  }
  Note& note(std::string id, std::optional<double> x = 0.5, std::optional<double> y = 0.25) {
    Note made;
    made.id = std::move(id);
    made.page = 1;
    made.x = x;
    made.y = y;
    made.text = "Look here";
    made.by = "jorvas@tessarine.example";
    detail.comments.push_back(made);
    return detail.comments.back();
  }
  Texts numbersOn(const Role& role) {
    Texts all;
    for (const auto& mark : on(role).notes) all.push_back(std::to_string(mark.number));
    return all;
  }

  FileDetail detail = detailOf(ticketOf("t1"));
};

TEST_F(PageMarks, OfFindingsStandOnTheSuppliersPaneAndOnTheirOwnReference) {
  find("words", "submitted");
  find("fonts", "fbc");
  find("elsewhere", "submitted", "words", 2);
  EXPECT_EQ(findingsOn(std::nullopt), (Texts{"words", "fonts"}));
  EXPECT_EQ(findingsOn("submitted"), Texts{"words"});
  EXPECT_EQ(findingsOn("fbc"), Texts{"fonts"});
}

TEST_F(PageMarks, OfAHiddenReferenceGoWithIt) {
  find("words", "submitted");
  find("fonts", "fbc");
  EXPECT_EQ(findingsOn(std::nullopt, {"fbc"}), Texts{"fonts"});
  EXPECT_EQ(findingsOn(std::nullopt, {}), Texts{});
}

TEST_F(PageMarks, OfChecksWithoutAReferenceStayOnTheSuppliersPaneAlone) {
  for (const char* kind : {"hidden", "barcode", "spots", "pass", "missing_page"}) {
    find(kind, "latest", kind);
  }
  EXPECT_EQ(findingsOn(std::nullopt, {"submitted"}),
            (Texts{"hidden", "barcode", "spots", "pass", "missing_page"}));
  EXPECT_EQ(findingsOn("submitted", {"submitted"}), Texts{});
}

TEST_F(PageMarks, DrawEachRectangleOfAFinding) {
  find("words", "submitted");
  detail.findings[0].boxes = {{0.1, 0.1, 0.1, 0.1}, {0.2, 0.2, 0.1}, {0.3, 0.3, 0.1, 0.1}};
  detail.findings[0].ref_box = {0.6, 0.6, 0.1, 0.1};
  EXPECT_EQ(findingsOn(std::nullopt), (Texts{"words", "words"}));
  EXPECT_NE(on(std::nullopt).boxes[0].key, on(std::nullopt).boxes[1].key);
  EXPECT_EQ(on(std::nullopt).boxes[1].name, "One word changed, Fix, Open, page iv, 2 of 2");
  ASSERT_EQ(on("submitted").boxes.size(), 1U);
  EXPECT_EQ(on("submitted").boxes[0].box.x, 0.6);
}

struct Manner {
  const char* name;
  const char* kind;
  const char* state;
  const char* colour;
  const char* line;
  const char* called;
};
BOOST_DESCRIBE_STRUCT(Manner, (), (name, kind, state, colour, line, called))
class Manners : public PageMarks, public testing::WithParamInterface<Manner> {};

TEST_P(Manners, TellAFindingsKindAndState) {
  find("f", "submitted", GetParam().kind);
  detail.findings[0].state = GetParam().state;
  const auto mark = on(std::nullopt).boxes.at(0);
  EXPECT_EQ(mark.colour, GetParam().colour);
  EXPECT_EQ(mark.line, GetParam().line);
  EXPECT_EQ(mark.name, GetParam().called);
  EXPECT_EQ(mark.help, "One word changed");
}

INSTANTIATE_TEST_SUITE_P(All, Manners,
                         testing::Values(Manner{"Open", "words", "open", "accent", "solid",
                                                "One word changed, Fix, Open, page iv"},
                                         Manner{"Issue", "words", "issue", "accent", "solid",
                                                "One word changed, Fix, Real issue, page iv"},
                                         Manner{"Fine", "words", "fine", "green", "dashed",
                                                "One word changed, Fix, Fine, page iv"},
                                         Manner{"Passed", "pass", "open", "green", "dashed",
                                                "One word changed, Fix, Passed, page iv"},
                                         Manner{"Expected", "expected", "open", "muted", "dotted",
                                                "One word changed, Fix, Our edit, page iv"},
                                         Manner{"ExpectedAndFine", "expected", "fine", "green",
                                                "dotted",
                                                "One word changed, Fix, Our edit, page iv"},
                                         Manner{"Unknown", "riddle", "riddle", "accent", "solid",
                                                "One word changed, Fix, Open, page iv"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(PageMarks, OfTheFindingInFocusAreSelected) {
  find("one", "submitted");
  find("two", "submitted");
  store().focus.set("two");
  EXPECT_FALSE(on(std::nullopt).boxes[0].selected);
  EXPECT_TRUE(on(std::nullopt).boxes[1].selected);
  EXPECT_TRUE(on("submitted").boxes[1].selected);
}

TEST_F(PageMarks, OfNotesStandOnTheirSide) {
  note("a").side = "supplier";
  note("b").side = "ours";
  note("c");
  note("d").side = "riddle";
  EXPECT_EQ(numbersOn(std::nullopt), (Texts{"1", "3", "4"}));
  EXPECT_EQ(numbersOn("submitted"), Texts{"2"}) << "counted with the other side's";
  EXPECT_EQ(numbersOn("fbc"), Texts{"2"}) << "all references get the same";
}

TEST_F(PageMarks, OfNotesResolvedOrElsewhereAreNone) {
  note("a").resolved = 1;
  note("b").page = 2;
  note("c").page.reset();
  note("d").resolved = 0;
  EXPECT_EQ(numbersOn(std::nullopt), Texts{"1"});
}

TEST_F(PageMarks, CountANoteWithoutAPlaceButDrawNone) {
  note("a", std::nullopt, 0.5);
  note("b", 0.5, std::nullopt);
  note("c");
  EXPECT_EQ(numbersOn(std::nullopt), Texts{"3"});
}

TEST_F(PageMarks, TellANoteByItsWriter) {
  note("a");
  auto& stranger = note("b");
  stranger.by = "gone@tessarine.example";
  stranger.w = 0.003;
  stranger.h = 0.5;
  auto& area = note("c");
  area.w = 0.2;
  area.h = 0.1;
  const auto marks = on(std::nullopt).notes;
  EXPECT_EQ(marks[0].help, "Jorvas: Look here");
  EXPECT_EQ(marks[0].name, "Note 1, Jorvas: Look here, page iv");
  EXPECT_EQ(marks[0].box, (Box{0.5, 0.25, 0, 0}));
  EXPECT_FALSE(marks[0].area);
  EXPECT_EQ(marks[1].help, "Gone: Look here");
  EXPECT_FALSE(marks[1].area);
  EXPECT_TRUE(marks[2].area);
}

TEST_F(PageMarks, OfTheDraftStandOnItsTicketPageAndSide) {
  const DraftNote draft{.fileID = "t1", .page = 1, .side = "ours", .x = 0.1, .y = 0.2};
  store().draft.set(draft);
  EXPECT_FALSE(on(std::nullopt).draft.here);
  EXPECT_EQ(on("submitted").draft,
            (DraftMarkView{true, {0.1, 0.2, 0, 0}, false, "Note here, piv"}));
  for (auto other : {DraftNote{.fileID = "t2", .page = 1, .side = "ours"},
                     DraftNote{.fileID = "t1", .page = 2, .side = "ours"},
                     DraftNote{.fileID = "t1", .page = 1, .side = "supplier"}}) {
    store().draft.set(other);
    EXPECT_FALSE(on("submitted").draft.here);
  }
  store().draft.set(DraftNote{"t1", 1, "supplier", 0.1, 0.2, 0.3, 0.4, {}});
  EXPECT_EQ(on(std::nullopt).draft.name, "Note on this area, piv");
}

class Drafts : public PageMarks {
 protected:
  Drafts() {
    store().board.set(boardOf({ticketOf("t1")}));
    store().details.set({{"t1", detail}});
    store().selection.set({"t1"});
    store().page.set({{"t1", 1}});
  }
};

TEST_F(Drafts, BeginOnTheOpenPageAndReplaceTheLast) {
  beginNote(store(), "ours", {100, 300}, {300, 450}, {400, 600});
  EXPECT_EQ(store().draft(), (DraftNote{"t1", 1, "ours", 0.25, 0.5, 0.5, 0.25, {}}));
  beginNote(store(), "supplier", {100, 300}, {100, 300}, {400, 600});
  EXPECT_EQ(store().draft(), (DraftNote{"t1", 1, "supplier", 0.25, 0.5, 0, 0, {}}));
}

TEST_F(Drafts, BeginOnNothingWithoutATicket) {
  store().selection.set({});
  beginNote(store(), "ours", {0, 0}, {0, 0}, {400, 600});
  EXPECT_FALSE(store().draft());
}

}  // namespace
}  // namespace vellix
