// What changes under the open send sheet.
#include <gmock/gmock.h>

#include "approval/send_sheet_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SendSheetsMeanwhile : public SendSheets {};

TEST_F(SendSheetsMeanwhile, KeepWhatIsTypedThroughAPoll) {
  open();
  pick(draft, kOlo, false);
  draft.note = "Half a li";
  type("rin", "Ri");
  board.approvers->push_back({.email = "rina@tessarine.example"});
  file().version = 2;
  file().approvers = {kTeva};
  pollBrings();
  EXPECT_EQ(draft.note, "Half a li");
  EXPECT_EQ(draft.adding, "rin");
  EXPECT_EQ(draft.addName, "Ri");
  EXPECT_THAT(picked(), ElementsAre(kMara, kTeva)) << "who came onto the list is not ticked";
  EXPECT_EQ(view().approvers.size(), 4U);
}

TEST_F(SendSheetsMeanwhile, SendToNobodyWhoWasTakenFromTheList) {
  file().approvers = {kMara, kOlo};
  publish();
  open();
  std::erase_if(*board.approvers, [](const Guest& guest) { return guest.email == kOlo; });
  pollBrings();
  EXPECT_EQ(view().approvers.size(), 2U);
  EXPECT_TRUE(send());
  EXPECT_THAT(asked()[0], testing::HasSubstr(R"("approvers":["mara@tessarine.example"])"));
}

TEST_F(SendSheetsMeanwhile, DoNotTickWhoComesBackOntoTheList) {
  open();
  const Guest gone = board.approvers->back();
  board.approvers->pop_back();
  pollBrings();
  board.approvers->push_back(gone);
  pollBrings();
  EXPECT_EQ(view().approvers.size(), 3U);
  EXPECT_THAT(picked(), ElementsAre(kMara, kOlo));
}

TEST_F(SendSheetsMeanwhile, KeepWhoWasAddedUntilTheListHasThem) {
  open();
  type("rina@tessarine.example", "Rina Sol");
  addTyped(draft, store());
  pollBrings();
  EXPECT_EQ(view().approvers.back().name, "Rina Sol") << "by a poll from before";
  board.approvers->push_back({.email = "rina@tessarine.example", .name = "Rina S."});
  pollBrings();
  EXPECT_EQ(view().approvers.size(), 4U) << "once";
  EXPECT_EQ(view().approvers.back(),
            (PickedApproverView{"rina@tessarine.example", "Rina S.", true}));
  board.approvers->pop_back();
  pollBrings();
  EXPECT_EQ(view().approvers.size(), 3U) << "and taken away they are gone";
}

TEST_F(SendSheetsMeanwhile, EndWithTheTicketAndKeepItsWords) {
  file().version = 2;
  publish();
  open();
  draft.note = "Look at p3";
  board.files.erase(board.files.begin());
  pollBrings();
  EXPECT_EQ(view().title, "Send v2 for approval");
  EXPECT_EQ(view().trouble, "This ticket isn't on the board any more.");
  EXPECT_FALSE(view().canSend);
  EXPECT_FALSE(send());
  EXPECT_EQ(draft.note, "Look at p3");
  EXPECT_THAT(asked(), IsEmpty());
}

struct MovedCase {
  const char* state;
  const char* trouble;
};
BOOST_DESCRIBE_STRUCT(MovedCase, (), (state, trouble))

class MovedUnderTheSheet : public SendSheets, public testing::WithParamInterface<MovedCase> {};

TEST_P(MovedUnderTheSheet, IsSentOnlyWhereItMay) {
  open();
  file().approval = GetParam().state;
  pollBrings();
  const std::string trouble = GetParam().trouble;
  EXPECT_EQ(view().trouble, trouble);
  EXPECT_EQ(view().canSend, trouble.empty());
  EXPECT_EQ(send(), trouble.empty());
  EXPECT_EQ(asked().size(), trouble.empty() ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    All, MovedUnderTheSheet,
    testing::Values(MovedCase{"pending", "This ticket has moved on: Out for approval."},
                    MovedCase{"changes", "This ticket has moved on: Changes asked."},
                    MovedCase{"revised", ""}, MovedCase{"on_hold", ""},
                    MovedCase{"approved", "This ticket has moved on: Approved."},
                    MovedCase{"sent", "This ticket has moved on: Sent."}),
    [](const auto& each) { return each.param.state; });

TEST_F(SendSheetsMeanwhile, SendNothingInAnotherSession) {
  open();
  store().signOut(true);
  desk.time.run();
  follow(draft, store());
  EXPECT_FALSE(view().canSend);
  EXPECT_FALSE(view().canAdd);
  EXPECT_FALSE(send());
}

}  // namespace
}  // namespace vellix
