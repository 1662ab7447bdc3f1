// The list's order, its groups and the folding of the reviewed ones.
#include "board/file_list.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

class FileList : public StoreTest {
 protected:
  void show(std::vector<FileItem> files) { store().board.set(boardOf(std::move(files))); }
  FileLines list(bool showReviewed = false) {
    return fileList(store(), showReviewed, desk.time.now());
  }
  std::vector<FileListRow> rows(bool showReviewed = false) {
    std::vector<FileListRow> rows;
    const FileLines made = list(showReviewed);
    rows.reserve(made.lines.size());
    for (const FileLine& line : made.lines) {
      rows.push_back(fileListRow(line, store(), desk.time.now(), desk.calendar));
    }
    return rows;
  }
  // The lines by their keys, without the word that tells their kind.
  std::vector<std::string> lines(bool showReviewed = false) {
    std::vector<std::string> all;
    for (const auto& row : rows(showReviewed)) {
      all.push_back(row.header ? row.title : row.ticket.id);
    }
    return all;
  }
};

using Lines = std::vector<std::string>;

TEST_F(FileList, IsSteadyUntilTimeChangesOneOfItsRows) {
  const Moment now = desk.time.now();
  FileItem soon = ticketOf("a");
  soon.due = wireOf(now) + 600'000 + 20'000;
  FileItem late = ticketOf("b", "in_review");
  late.due = wireOf(now) - 90'000;
  FileItem done = ticketOf("c", "reviewed");
  done.due = wireOf(now) + 1'000;
  const auto isSteadyFor = [&](double seconds) {
    return isSteady(list(), now, now + Milliseconds{seconds * 1'000}, desk.calendar);
  };
  show({done, late});
  EXPECT_TRUE(isSteadyFor(29));
  EXPECT_FALSE(isSteadyFor(31));
  show({done, late, soon});
  EXPECT_TRUE(isSteadyFor(19));
  EXPECT_FALSE(isSteadyFor(21));
  EXPECT_FALSE(isSteadyFor(-1)) << "the clock was put back";
  show({done});
  EXPECT_TRUE(isSteadyFor(59));
  EXPECT_FALSE(isSteadyFor(60)) << "the zone may have changed";
}

TEST_F(FileList, IsNotSteadyOverMidnight) {
  show({ticketOf("a")});
  const Moment midnight = momentOf(1'700'006'400'000);
  const auto around = [&](double before, double after) {
    return isSteady(list(), midnight - Milliseconds{before}, midnight + Milliseconds{after},
                    desk.calendar);
  };
  EXPECT_TRUE(around(2'000, -1'000));
  EXPECT_FALSE(around(1'000, 1'000));
}

struct Dates {
  std::optional<double> due;
  std::optional<double> received;
};
BOOST_DESCRIBE_STRUCT(Dates, (), (due, received))

FileItem dated(std::string id, Dates dates) {
  FileItem file = ticketOf(std::move(id));
  file.due = dates.due;
  file.received = dates.received;
  return file;
}

struct Order {
  const char* name;
  std::vector<Dates> dates;  // of a, b, c and so on
  Lines order;
};
BOOST_DESCRIBE_STRUCT(Order, (), (name, dates, order))

class FileListOrders : public FileList, public testing::WithParamInterface<Order> {};

TEST_P(FileListOrders, GoByDueAndThenByReceived) {
  std::vector<FileItem> files;
  for (const auto& dates : GetParam().dates) {
    files.push_back(dated(std::string(1, static_cast<char>('a' + files.size())), dates));
  }
  show(files);
  Lines expected{"To review"};
  expected.insert(expected.end(), GetParam().order.begin(), GetParam().order.end());
  EXPECT_EQ(lines(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, FileListOrders,
    testing::Values(
        Order{"SoonestFirst", {{30, {}}, {10, {}}, {20, {}}}, {"b", "c", "a"}},
        Order{"NoDueComesLast", {{{}, 900}, {10, {}}}, {"b", "a"}},
        Order{"SameDueNewestFirst", {{10, 1}, {10, 3}, {10, 2}}, {"b", "c", "a"}},
        Order{"NoDueNewestFirst", {{{}, 1}, {{}, 3}, {{}, 2}}, {"b", "c", "a"}},
        Order{"NoReceivedIsTheOldest", {{10, {}}, {10, 5}}, {"b", "a"}},
        Order{"NoReceivedCountsAsZero", {{10, {}}, {10, 0.0}, {10, -1}}, {"a", "b", "c"}},
        Order{"AllEqualKeepTheBoardsOrder", {{10, 1}, {10, 1}, {10, 1}}, {"a", "b", "c"}}),
    [](const auto& each) { return each.param.name; });

TEST_F(FileList, CutsTheTicketsIntoGroupsInTheirOrder) {
  show({ticketOf("c", "reviewed"), ticketOf("b", "in_review"), ticketOf("a", "new")});
  EXPECT_EQ(lines(true), (Lines{"To review", "a", "In review", "b", "Reviewed", "c"}));
}

TEST_F(FileList, LeavesAGroupWithoutTicketsOutWhole) {
  show({ticketOf("b", "in_review")});
  EXPECT_EQ(lines(), (Lines{"In review", "b"}));
}

TEST_F(FileList, StaysBlankOverTicketsOfUnknownStatus) {
  show({ticketOf("a", "New"), ticketOf("b", ""), ticketOf("c", "archived")});
  EXPECT_EQ(lines(), Lines{});
  EXPECT_FALSE(list().head.empty);
  EXPECT_EQ(list().head.emptyFirst, "");
}

TEST_F(FileList, OrdersTheReviewedByWhenTheyWereReviewed) {
  std::vector<FileItem> files;
  const std::vector<std::optional<double>> moments{10, std::nullopt, 30, 20, std::nullopt};
  for (const auto& moment : moments) {
    files.push_back(ticketOf(std::string(1, static_cast<char>('a' + files.size())), "reviewed"));
    files.back().status_at = moment;
  }
  files.front().due = 1;  // due dates do not matter here
  show(files);
  EXPECT_EQ(lines(true), (Lines{"Reviewed", "c", "d", "a", "b", "e"}));
}

TEST_F(FileList, OrdersTheReviewedOfOneMomentAsTheOthers) {
  auto later = dated("a", {20, {}});
  auto sooner = dated("b", {10, {}});
  later.status = sooner.status = "reviewed";
  later.status_at = sooner.status_at = 5;
  show({later, sooner});
  EXPECT_EQ(lines(true), (Lines{"Reviewed", "b", "a"}));
}

struct Fold {
  const char* name;
  bool foldReviewed;
  bool showReviewed;
  bool folds;
  bool open;
  const char* count;
};
BOOST_DESCRIBE_STRUCT(Fold, (), (name, foldReviewed, showReviewed, folds, open, count))

class FileListFolds : public FileList, public testing::WithParamInterface<Fold> {};

TEST_P(FileListFolds, HideTheReviewedOnlyWhileTheyFold) {
  const auto& each = GetParam();
  store().prefs.foldReviewed.set(each.foldReviewed);
  show({ticketOf("a"), ticketOf("b", "reviewed"), ticketOf("c", "reviewed")});
  const auto rows = this->rows(each.showReviewed);
  ASSERT_EQ(rows.size(), each.open ? 5U : 3U);
  const auto& header = rows.at(2);
  EXPECT_TRUE(header.header);
  EXPECT_EQ(header.title, "Reviewed");
  EXPECT_EQ(header.folds, each.folds);
  EXPECT_EQ(header.open, each.open);
  EXPECT_EQ(header.count, each.count);
  EXPECT_FALSE(rows.front().folds);
  EXPECT_EQ(rows.front().count, "");
}

INSTANTIATE_TEST_SUITE_P(All, FileListFolds,
                         testing::Values(Fold{"FoldedAway", true, false, true, false, "2"},
                                         Fold{"Opened", true, true, true, true, "2"},
                                         Fold{"NotFolding", false, false, false, true, ""},
                                         Fold{"NotFoldingAndShown", false, true, false, true, ""}),
                         [](const auto& each) { return each.param.name; });

TEST_F(FileList, CountsOnlyOnesOwnBesideTheFoldedHeader) {
  auto mine = ticketOf("a", "reviewed");
  mine.assignee = "renny@tessarine.example";
  show({mine, ticketOf("b", "reviewed")});
  EXPECT_EQ(rows().at(0).count, "2");
  store().setMineOnly(true);
  EXPECT_EQ(rows().at(0).count, "1");
}

TEST_F(FileList, GivesEveryLineAKeyThatOutlastsItsContent) {
  show({ticketOf("a"), ticketOf("group new", "in_review")});
  const auto before = rows();
  auto board = *store().board();
  board.files[0].title = "Another title";
  store().board.set(board);
  const auto after = rows();
  ASSERT_EQ(before.size(), after.size());
  std::set<std::string> keys;
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(before[i].key, after[i].key);
    keys.insert(before[i].key);
  }
  EXPECT_EQ(keys.size(), before.size()) << "a ticket may be named like a group";
}

TEST_F(FileList, MarksTheSelectedTickets) {
  show({ticketOf("a"), ticketOf("b"), ticketOf("c")});
  store().selection.set({"a", "c"});
  const auto rows = this->rows();
  EXPECT_TRUE(rows.at(1).ticket.selected);
  EXPECT_FALSE(rows.at(2).ticket.selected);
  EXPECT_TRUE(rows.at(3).ticket.selected);
}

// A header, two tickets, a header, a ticket, and a header that folds.
std::vector<FileLine> sixRows() {
  static const FileItem ticket;
  static const FileGroup group;
  static const FileGroup folding{.folds = true};
  std::vector<FileLine> rows(6, {.ticket = &ticket, .group = &group});
  for (const std::size_t header : {0, 3, 5}) rows[header].ticket = nullptr;
  rows[5].group = &folding;
  return rows;
}

struct RowStep {
  const char* name;
  int from;
  int by;
  int to;
};
BOOST_DESCRIBE_STRUCT(RowStep, (), (name, from, by, to))

class RowSteps : public testing::TestWithParam<RowStep> {};

TEST_P(RowSteps, ComeToWhatIsPressed) {
  EXPECT_EQ(rowFrom(sixRows(), GetParam().from, GetParam().by), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    All, RowSteps,
    testing::Values(RowStep{"OntoTheFirst", -1, 1, 1}, RowStep{"On", 1, 1, 2},
                    RowStep{"PastAHeader", 2, 1, 4}, RowStep{"OntoAHeaderThatFolds", 4, 1, 5},
                    RowStep{"Back", 2, -1, 1}, RowStep{"BackPastAHeader", 4, -1, 2},
                    RowStep{"ByMore", 1, 2, 4}, RowStep{"BackByMore", 5, -3, 1},
                    RowStep{"BeyondTheLast", 2, 90, 5}, RowStep{"BeforeTheFirst", 4, -90, 1},
                    RowStep{"AtTheLast", 5, 1, 5}, RowStep{"AtTheFirst", 1, -1, 1},
                    RowStep{"BackFromBeforeAll", -1, -1, -1},
                    RowStep{"BackFromBehindAll", 6, -1, 5}, RowStep{"Nowhere", 4, 0, 4}),
    [](const auto& each) { return each.param.name; });

TEST(RowSteps, AreNoneWithoutRows) { EXPECT_EQ(rowFrom({}, -1, 1), -1); }

TEST_F(FileList, KnowTheRowOfTheOneTicketOnShow) {
  show({ticketOf("a"), ticketOf("b"), ticketOf("c", "in_review"), ticketOf("d", "reviewed")});
  const auto row = [this](std::set<std::string> selection, bool showReviewed = false) {
    store().selection.set(std::move(selection));
    return chosenRow(list(showReviewed).lines);
  };
  EXPECT_EQ(row({}), -1);
  EXPECT_EQ(row({"b"}), 2);
  EXPECT_EQ(row({"c"}), 4);
  EXPECT_EQ(row({"d"}), -1) << "folded away";
  EXPECT_EQ(row({"d"}, true), 6);
  EXPECT_EQ(row({"elsewhere"}), -1);
  EXPECT_EQ(row({"a", "b"}), -1);
}

}  // namespace
}  // namespace vellix
