// Where a reviewer is carried once a ticket is reviewed.
#include "store/ticket_status_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

struct AdvanceCase {
  const char* name;
  std::vector<FileItem> files;
  const char* next;
};
BOOST_DESCRIBE_STRUCT(AdvanceCase, (), (name, files, next))

class Advance : public TicketStatus, public testing::WithParamInterface<AdvanceCase> {};

TEST_P(Advance, GoesToTheTicketDueFirst) {
  show(GetParam().files);
  store().setStatus(held(), "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre(GetParam().next));
  EXPECT_FALSE(store().focus());
}

FileItem reprint(FileItem file) {
  file.track = "reprint";
  return file;
}

INSTANTIATE_TEST_SUITE_P(
    All, Advance,
    testing::Values(
        AdvanceCase{"TheLastOne", {dueAt("t1", 5)}, "t1"},
        AdvanceCase{"OthersReviewed", {dueAt("t1", 5), dueAt("t2", 1, "reviewed")}, "t1"},
        AdvanceCase{"Earliest",
                    {dueAt("t1", 5), dueAt("t2", 20), dueAt("t3", std::nullopt), dueAt("t4", 10)},
                    "t4"},
        AdvanceCase{"ATie", {dueAt("t0", 10), dueAt("t1", 5), dueAt("t2", 10)}, "t0"},
        AdvanceCase{"NoDueDates",
                    {dueAt("t1", 5), dueAt("t2", std::nullopt), dueAt("t3", std::nullopt)},
                    "t2"},
        AdvanceCase{"InReviewCounts", {dueAt("t1", 5), dueAt("t2", 7, "in_review")}, "t2"},
        AdvanceCase{"OtherQueue", {dueAt("t1", 5), reprint(dueAt("t2", 1)), dueAt("t3", 9)}, "t3"}),
    [](const auto& each) { return each.param.name; });

TEST_F(TicketStatus, CarriesOnWithinTheOnesOwn) {
  FileItem mine = dueAt("t3", 9);
  mine.assignee = "renny@tessarine.example";
  show({dueAt("t1", 5), dueAt("t2", 1), mine});
  store().mineOnly.set(true);
  store().setStatus(held(), "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre("t3"));
}

TEST_F(TicketStatus, StaysWhereItIsWhenNobodyWantsToBeCarried) {
  store().prefs.autoAdvance.set(false);
  show({dueAt("t1", 5), dueAt("t2", 1)});
  store().setStatus(held(), "reviewed");
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(store().focus(), "f1");
}

TEST_F(TicketStatus, CarriesNobodyFromSeveralTicketsOrFromAnother) {
  for (const std::set<std::string>& selected :
       {std::set<std::string>{"t1", "t2"}, {"t2"}, std::set<std::string>{}}) {
    show({dueAt("t1", 5), dueAt("t2", 1), dueAt("t3", 2)}, selected);
    store().setStatus(ticketOf("t1"), "reviewed");
    EXPECT_EQ(store().selection(), selected);
    EXPECT_EQ(store().focus(), "f1");
    EXPECT_EQ(held().status, "reviewed");
  }
}

}  // namespace
}  // namespace vellix
