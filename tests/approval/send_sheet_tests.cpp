// Sending out for approval: what is picked and written.
#include "approval/send_sheet.hpp"

#include <gmock/gmock.h>

#include "approval/send_sheet_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SendSheets, AskEverybodyTheFirstTime) {
  open();
  EXPECT_THAT(view().approvers, ElementsAre(PickedApproverView{kMara, "Mara Quell", true},
                                            PickedApproverView{kOlo, "Olo Brandt", true},
                                            PickedApproverView{kTeva, "teva", true}));
  file().approvers = std::vector<std::string>{};
  publish();
  open();
  EXPECT_EQ(picked().size(), 3U) << "an empty list is none";
}

TEST_F(SendSheets, AskTheSamePeopleAgain) {
  file().approvers = {kTeva, kMara};
  publish();
  open();
  EXPECT_THAT(picked(), ElementsAre(kMara, kTeva));
}

TEST_F(SendSheets, ShowWhoWasAskedAndIsNotOnTheList) {
  file().approvers = {"nils@elsewhere.example", kJorvas, kMara};
  publish();
  open();
  EXPECT_THAT(view().approvers,
              ElementsAre(PickedApproverView{kMara, "Mara Quell", true},
                          PickedApproverView{kOlo, "Olo Brandt", false},
                          PickedApproverView{kTeva, "teva", false},
                          PickedApproverView{"nils@elsewhere.example", "Nils", true},
                          PickedApproverView{kJorvas, "Jorvas", true}))
      << "nobody is sent to who is not seen";
}

TEST_F(SendSheets, SayThatNobodyIsOnOffer) {
  board.approvers.reset();
  publish();
  open();
  EXPECT_EQ(view().none, "No key approvers yet. Add one below. They're saved for next time.");
  EXPECT_FALSE(view().canSend);
  draft.note = "Please look";
  EXPECT_FALSE(view().canSend) << "a line alone is for nobody";
  type(kMara, "Mara");
  addTyped(draft, store());
  EXPECT_EQ(view().none, "");
  EXPECT_TRUE(view().canSend);
}

TEST_F(SendSheets, TellTheVersionAndWhereChangesComeBack) {
  open();
  EXPECT_EQ(view().title, "Send v1 for approval");
  const std::string intro =
      "They open the link in their browser, sign in with Google, and approve it or ask for "
      "changes. Changes come back to ";
  EXPECT_EQ(view().intro, intro + "Claude.");
  file().version = 4;
  file().assignee = kJorvas;
  pollBrings();
  EXPECT_EQ(view().title, "Send v4 for approval");
  EXPECT_EQ(view().intro, intro + "Jorvas.");
}

TEST_F(SendSheets, PickAndUnpick) {
  open();
  pick(draft, kOlo, false);
  pick(draft, kMara, false);
  pick(draft, kMara, true);
  pick(draft, "stranger@tessarine.example", true);
  EXPECT_THAT(picked(), ElementsAre(kMara, kTeva));
  pick(draft, kMara, false);
  pick(draft, kTeva, false);
  EXPECT_FALSE(view().canSend);
  EXPECT_FALSE(send());
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(SendSheets, AddOnlyAnAddressOfTheCompany) {
  open();
  for (const char* typed : {"", "rina", "rina@elsewhere.example", "rina@tessarine.example.org"}) {
    type(typed, "Rina");
    EXPECT_FALSE(view().canAdd) << typed;
    addTyped(draft, store());
    EXPECT_EQ(draft.adding, typed) << "nothing is cleared";
    EXPECT_EQ(draft.addName, "Rina");
  }
  EXPECT_THAT(asked(), IsEmpty());
  type(" Rina@Tessarine.example ");
  EXPECT_TRUE(view().canAdd);
  EXPECT_EQ(view().example, "name@tessarine.example");
}

TEST_F(SendSheets, TickWhoIsAddedAtOnce) {
  open();
  type(" RINA@tessarine.example ", " Rina Sol ");
  addTyped(draft, store());
  EXPECT_EQ(view().approvers.back(),
            (PickedApproverView{"rina@tessarine.example", "Rina Sol", true}));
  EXPECT_EQ(draft.adding, "");
  EXPECT_EQ(draft.addName, "");
  ASSERT_EQ(asked().size(), 1U);
  EXPECT_THAT(asked()[0],
              testing::HasSubstr(R"({"email":"rina@tessarine.example","name":"Rina Sol"}]})"));
}

TEST_F(SendSheets, CallWhoIsAddedWithoutANameAsTheSavedListWill) {
  open();
  type("rina@tessarine.example");
  addTyped(draft, store());
  EXPECT_EQ(view().approvers.back().name, "rina");
  board.approvers->push_back({.email = "rina@tessarine.example", .name = {}});
  pollBrings();
  EXPECT_EQ(view().approvers.back(), (PickedApproverView{"rina@tessarine.example", "rina", true}));
}

TEST_F(SendSheets, TickWhoIsKnownAndSaveNothing) {
  open();
  pick(draft, kMara, false);
  type("MARA@tessarine.example", "Somebody");
  addTyped(draft, store());
  EXPECT_THAT(picked(), ElementsAre(kMara, kOlo, kTeva));
  EXPECT_EQ(draft.adding, "");
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(SendSheets, AddOneAfterTheOther) {
  open();
  type("rina@tessarine.example");
  addTyped(draft, store());
  type("ulf@tessarine.example");
  EXPECT_FALSE(view().canAdd) << "the first is still on its way";
  addTyped(draft, store());
  EXPECT_EQ(draft.adding, "ulf@tessarine.example");
  EXPECT_EQ(asked().size(), 1U);
}

struct AfterCase {
  const char* name;
  std::optional<std::string> stored;
  const char* then;
  bool hint;
};
BOOST_DESCRIBE_STRUCT(AfterCase, (), (name, stored, then, hint))

class AfterSending : public SendSheets, public testing::WithParamInterface<AfterCase> {};

TEST_P(AfterSending, IsWhatWasChosenTheLastTime) {
  if (GetParam().stored) store().prefs.afterApproval.set(*GetParam().stored);
  open();
  EXPECT_EQ(view().then, GetParam().then);
  EXPECT_EQ(view().hint,
            GetParam().hint
                ? "In the Notion task, paste it and pick Embed. It shows the pages to compare and "
                  "where it stands, to anyone with the link."
                : "");
}

INSTANTIATE_TEST_SUITE_P(All, AfterSending,
                         testing::Values(AfterCase{"NeverChosen", std::nullopt, "notion", true},
                                         AfterCase{"Notion", "notion", "notion", true},
                                         AfterCase{"Gmail", "gmail", "gmail", false},
                                         AfterCase{"Nothing", "none", "none", false},
                                         AfterCase{"Unknown", "fax", "none", false}),
                         [](const auto& each) { return each.param.name; });

TEST_F(SendSheets, KeepTheChoiceForTheNextTime) {
  open();
  EXPECT_THAT(view().after, ElementsAre(ChoiceView{"notion", "Copy the link for a Notion task"},
                                        ChoiceView{"gmail", "Open a Gmail message with the link"},
                                        ChoiceView{"none", "Nothing"}));
  setAfterSending(store(), "gmail");
  setAfterSending(store(), "fax");
  EXPECT_EQ(view().then, "gmail");
  EXPECT_EQ(desk.defaults.text("AfterApproval"), "gmail");
}

TEST_F(SendSheets, SendWhatIsPickedAndTyped) {
  open();
  pick(draft, kOlo, false);
  draft.note = " Look at p3 ";
  EXPECT_TRUE(send());
  EXPECT_THAT(asked(),
              ElementsAre(R"(POST api/files/t1/approval {"action":"request",)"
                          R"("approvers":["mara@tessarine.example","teva@tessarine.example"],)"
                          R"("note":" Look at p3 "})"));
}

TEST_F(SendSheets, SendOnce) {
  open();
  EXPECT_TRUE(send());
  EXPECT_FALSE(view().canSend);
  EXPECT_FALSE(send());
  EXPECT_EQ(asked().size(), 1U);
}

}  // namespace
}  // namespace vellix
