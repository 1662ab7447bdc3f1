// The tickets that a person has still to review.
#include "profile/open_list.hpp"

#include <gmock/gmock.h>

#include "board/file_row.hpp"
#include "profile/profile_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OpenList : public ProfileTest {
 protected:
  OpenListView list(const std::string& email = kJorvas) {
    publish();
    return openList(store(), email, desk.time.now(), desk.calendar);
  }
  std::vector<std::string> ids(const std::string& email = kJorvas) {
    std::vector<std::string> all;
    for (const auto& row : list(email).rows) all.push_back(row.id);
    return all;
  }
};

struct OpenCase {
  const char* name;
  std::optional<std::string> assignee;
  const char* status;
  bool open;
};
BOOST_DESCRIBE_STRUCT(OpenCase, (), (name, assignee, status, open))

class OpenTickets : public OpenList, public testing::WithParamInterface<OpenCase> {};

TEST_P(OpenTickets, AreThePersonsAndNotReviewed) {
  board.files[0].assignee = GetParam().assignee;
  board.files[0].status = GetParam().status;
  EXPECT_EQ(ids(), GetParam().open ? std::vector<std::string>{"t1"} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(All, OpenTickets,
                         testing::Values(OpenCase{"New", kJorvas, "new", true},
                                         OpenCase{"InReview", kJorvas, "in_review", true},
                                         OpenCase{"OfAnUnknownStatus", kJorvas, "mystery", true},
                                         OpenCase{"OfNoStatus", kJorvas, "", true},
                                         OpenCase{"Reviewed", kJorvas, "reviewed", false},
                                         OpenCase{"AnothersOwn", kRenny, "new", false},
                                         OpenCase{"Nobodys", std::nullopt, "new", false},
                                         OpenCase{"NobodysByAnEmptyAddress", "", "new", false}),
                         [](const auto& each) { return each.param.name; });

TEST_F(OpenList, SaysThatNothingIsOpen) {
  EXPECT_EQ(list().title, "Nothing open");
  EXPECT_EQ(list().none, "All caught up.");
  EXPECT_THAT(list().rows, IsEmpty());
  board.files[0].assignee = kJorvas;
  EXPECT_EQ(list().title, "Open now");
  EXPECT_EQ(list().none, "");
  EXPECT_EQ(list(kRenny).title, "Nothing open");
}

TEST_F(OpenList, HasNothingWithoutABoardOrAnAddress) {
  board.files[0].assignee = "";
  EXPECT_THAT(ids(""), IsEmpty());
  store().board.set(std::nullopt);
  const auto none = openList(store(), kJorvas, desk.time.now(), desk.calendar);
  EXPECT_EQ(none.title, "Nothing open");
  EXPECT_EQ(none.none, "All caught up.");
}

TEST_F(OpenList, KeepsTheBoardsOrder) {
  for (FileItem& file : board.files) file.assignee = kJorvas;
  board.files[0].due = now() + 9e7;
  std::swap(board.files[0], board.files[2]);
  EXPECT_THAT(ids(), ElementsAre("t3", "t2", "t1"));
}

TEST_F(OpenList, KeepsThePersonsTicketsWhoHasLeft) {
  board.files[1].assignee = kJorvas;
  board.users.pop_back();
  EXPECT_THAT(ids(), ElementsAre("t2"));
}

TEST_F(OpenList, ShowsATicketAsTheListDoes) {
  FileItem& file = board.files[0];
  file.assignee = kJorvas;
  file.po = "4711";
  file.supplier = "Halden Press";
  file.page_count = 32;
  file.thumb = "b1";
  file.due = now() - 3 * 3'600'000.0;
  auto row = list().rows.at(0);
  const auto listed = fileRow(file, store(), desk.time.now(), desk.calendar);
  EXPECT_EQ(row.heading, "The Lighthouse");
  EXPECT_EQ(row.subline, "4711 · Halden Press · 32 p");
  EXPECT_EQ(row.thumb, "b1");
  EXPECT_EQ(row.due, listed.due);
  EXPECT_EQ(row.approval, std::nullopt);
  EXPECT_EQ(row.spoken, "The Lighthouse, 4711 · Halden Press · 32 p, Overdue 3 hr");
  file.approval = "pending";
  row = list().rows.at(0);
  EXPECT_EQ(row.due, std::nullopt) << "the round takes its place";
  ASSERT_TRUE(row.approval);
  EXPECT_EQ(row.spoken, "The Lighthouse, 4711 · Halden Press · 32 p, " + row.approval->text);
}

TEST_F(OpenList, NamesATicketOfWhichNothingIsTold) {
  board.files[2].assignee = kJorvas;
  EXPECT_EQ(list().rows.at(0).spoken, "Untitled file");
}

TEST_F(OpenList, LeadsToTheTicketAlone) {
  store().selection.set({"t1", "t3"});
  store().focus.set("f1");
  EXPECT_TRUE(selectFromProfile(store(), "t2"));
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_EQ(store().focus(), std::nullopt);
}

TEST_F(OpenList, LeadsNowhereWithoutATicketOfTheBoard) {
  store().selection.set({"t1"});
  for (const char* gone : {"t9", ""}) EXPECT_FALSE(selectFromProfile(store(), gone)) << gone;
  store().board.set(std::nullopt);
  EXPECT_FALSE(selectFromProfile(store(), "t2"));
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
}

}  // namespace
}  // namespace vellix
