// One ticket of the list.
#include "board/file_row.hpp"

#include <gmock/gmock.h>

#include "support/desk.hpp"

namespace vellix {
namespace {

using Text = std::optional<std::string>;

struct Subline {
  const char* name;
  Text po;
  Text supplier;
  std::optional<Int> pages;
  const char* line;
};
BOOST_DESCRIBE_STRUCT(Subline, (), (name, po, supplier, pages, line))

class FileRow : public testing::Test {
 protected:
  Desk desk;

  FileRowView rowOf(const FileItem& file, Moment now = momentOf(0)) {
    return fileRow(file, desk.store(), now, desk.calendar);
  }
};

class Sublines : public FileRow, public testing::WithParamInterface<Subline> {};

TEST_P(Sublines, JoinWhatIsThere) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1");
  file.po = each.po;
  file.supplier = each.supplier;
  file.page_count = each.pages;
  EXPECT_EQ(rowOf(file).subline, each.line);
}

INSTANTIATE_TEST_SUITE_P(
    All, Sublines,
    testing::Values(Subline{"All", "PO 7", "Harrow Print", 32, "PO 7 · Harrow Print · 32 p"},
                    Subline{"NoOrder", std::nullopt, "Harrow Print", 32, "Harrow Print · 32 p"},
                    Subline{"EmptyOrder", "", "Harrow Print", 32, "Harrow Print · 32 p"},
                    Subline{"NoSupplier", "PO 7", std::nullopt, 32, "PO 7 · 32 p"},
                    Subline{"EmptySupplier", "PO 7", "", 32, "PO 7 · 32 p"},
                    Subline{"NoPageCount", "PO 7", "Harrow Print", std::nullopt,
                            "PO 7 · Harrow Print"},
                    Subline{"ZeroPagesAreThere", std::nullopt, std::nullopt, 0, "0 p"},
                    Subline{"Nothing", std::nullopt, std::nullopt, std::nullopt, ""}),
    [](const auto& each) { return each.param.name; });

std::vector<Ref> matched(std::initializer_list<std::optional<Int>> counts) {
  std::vector<Ref> refs;
  for (const auto& count : counts) refs.push_back({.role = "submitted", .matched = count});
  return refs;
}

struct Count {
  const char* name;
  const char* status;
  std::optional<Tally> tally;
  std::optional<std::vector<Ref>> refs;
  FileCountView view;
};
BOOST_DESCRIBE_STRUCT(Count, (), (name, status, tally, refs, view))

class FileCounts : public testing::TestWithParam<Count> {};

TEST_P(FileCounts, FollowTheFirstRuleThatHolds) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1", each.status);
  file.tally = each.tally;
  file.refs = each.refs;
  EXPECT_EQ(fileCount(file), each.view) << jsonOf(file);
}

const FileCountView kDone{.text = "", .icon = "checkmark.circle.fill", .tone = "green", .help = ""};
const FileCountView kSame{
    .text = "", .icon = "equal.circle", .tone = "muted", .help = "No differences"};
const FileCountView kUnknown{.text = "",
                             .icon = "questionmark.circle",
                             .tone = "muted",
                             .help = "Nothing of ours was found to compare it with"};
FileCountView issues(const char* text, const char* help) {
  return {.text = text, .icon = "", .tone = "red", .help = help};
}
FileCountView open(const char* text, const char* help) {
  return {.text = text, .icon = "", .tone = "accent", .help = help};
}

Tally tally(std::optional<Int> open, std::optional<Int> issues) {
  return {.open = open, .issues = issues, .total = std::nullopt};
}

INSTANTIATE_TEST_SUITE_P(
    All, FileCounts,
    testing::Values(
        Count{"Reviewed", "reviewed", std::nullopt, std::nullopt, kDone},
        Count{"ReviewedWithOpenIssues", "reviewed", tally(4, 3), matched({5}), kDone},
        Count{"OneIssue", "new", tally(0, 1), std::nullopt, issues("1", "1 real issue")},
        Count{"TwoIssues", "in_review", tally(0, 2), std::nullopt, issues("2", "2 real issues")},
        Count{"IssuesComeBeforeOpen", "new", tally(9, 12), std::nullopt,
              issues("12", "12 real issues")},
        Count{"OneOpen", "new", tally(1, 0), matched({5}), open("1", "1 to look at")},
        Count{"ManyOpen", "new", tally(14, std::nullopt), matched({5}),
              open("14", "14 to look at")},
        Count{"NoneAndCompared", "new", tally(0, 0), matched({5}), kSame},
        Count{"NoTallyAndCompared", "new", std::nullopt, matched({5}), kSame},
        Count{"OneMatchIsEnough", "new", std::nullopt, matched({std::nullopt, 0, 1}), kSame},
        Count{"NothingMatched", "new", tally(0, 0), matched({0}), kUnknown},
        Count{"MatchUntold", "new", tally(0, 0), matched({std::nullopt}), kUnknown},
        Count{"NoRefs", "new", tally(0, 0), std::vector<Ref>{}, kUnknown},
        Count{"RefsUntold", "new", std::nullopt, std::nullopt, kUnknown},
        Count{"FewerThanNoneOpen", "new", tally(-1, -1), matched({5}), kUnknown}),
    [](const auto& each) { return each.param.name; });

TEST_F(FileRow, TakesHeadingThumbAndSelectionFromItsTicket) {
  FileItem file = ticketOf("t1");
  file.title = "The Lighthouse";
  file.component = "Cover";
  file.thumb = "blob-1";
  EXPECT_FALSE(rowOf(file).selected);
  desk.store().selection.set({"t1", "t2"});
  const auto row = rowOf(file);
  EXPECT_EQ(row.id, "t1");
  EXPECT_EQ(row.heading, "The Lighthouse Cover");
  EXPECT_EQ(row.thumb, "blob-1");
  EXPECT_TRUE(row.selected);
}

TEST_F(FileRow, HasAnEmptyThumbAndNoChipWhenItsTicketHasNone) {
  const auto row = rowOf(ticketOf("t1"));
  EXPECT_EQ(row.thumb, "");
  EXPECT_FALSE(row.due);
}

TEST_F(FileRow, ShowsTheDueChipOfItsTicket) {
  FileItem file = ticketOf("t1");
  file.due = 0;
  const auto row = rowOf(file, momentOf(60'000));
  ASSERT_TRUE(row.due);
  EXPECT_EQ(*row.due, dueChip(file, momentOf(60'000), desk.calendar));
}

TEST_F(FileRow, KeepsTheDueChipWhenChangesAreAskedFor) {
  FileItem file = ticketOf("t1");
  file.due = 0;
  file.approval = "changes";
  EXPECT_TRUE(rowOf(file).due);
}

TEST_F(FileRow, LeavesTheDueChipsPlaceToAnyOtherApproval) {
  FileItem file = ticketOf("t1");
  file.due = 0;
  for (const char* approval : {"pending", "approved", "sent"}) {
    file.approval = approval;
    EXPECT_FALSE(rowOf(file).due) << approval;
  }
  file.approval = "";
  EXPECT_TRUE(rowOf(file).due) << "an empty one is none";
}

TEST_F(FileRow, ShowsWhereTheApprovalStandsInFewWords) {
  FileItem file = ticketOf("t1");
  file.version = 2;
  EXPECT_FALSE(rowOf(file).approval);
  for (const auto& [state, words] : {std::pair{"pending", "Out for approval"},
                                     {"changes", "Changes"},
                                     {"revised", "v2 to send"},
                                     {"approved", "Approved"},
                                     {"sent", "Sent"}}) {
    file.approval = state;
    const auto row = rowOf(file);
    ASSERT_TRUE(row.approval) << state;
    EXPECT_EQ(row.approval->text, words);
    EXPECT_THAT(row.spoken, testing::HasSubstr(words));
  }
  file.approval = "mislaid";
  EXPECT_FALSE(rowOf(file).approval) << "nothing is said of a state that is not known";
  EXPECT_FALSE(rowOf(file).due);
}

TEST_F(FileRow, ShowsWhoReviews) {
  desk.store().board.set(boardOf({}));
  FileItem file = ticketOf("t1");
  EXPECT_FALSE(rowOf(file).assignee);
  file.assignee = "renny@tessarine.example";
  ASSERT_TRUE(rowOf(file).assignee);
  EXPECT_EQ(rowOf(file).assignee->help, "Renny Vale");
  file.assignee = "quinn@tessarine.example";
  EXPECT_EQ(rowOf(file).assignee->letter, "q");
}

TEST_F(FileRow, IsSpokenBehindItsHeadingAndSkipsWhatIsEmpty) {
  FileItem file = ticketOf("t1");
  file.title = "The Lighthouse";
  file.po = "PO 7";
  file.due = 0;
  file.tally = tally(2, 0);
  file.assignee = "renny@tessarine.example";
  desk.store().board.set(boardOf({}));
  EXPECT_EQ(rowOf(file, momentOf(60'000)).spoken, "PO 7, Overdue 1 min, 2 to look at, Renny Vale");
  FileItem bare = ticketOf("t2", "reviewed");
  bare.title = "Harbour Bread";
  EXPECT_EQ(rowOf(bare).spoken, "");
}

}  // namespace
}  // namespace vellix
