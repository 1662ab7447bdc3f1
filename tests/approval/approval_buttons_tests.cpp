#include "approval/approval_buttons.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ApprovalButtons : public ApprovalTest {
 protected:
  ApprovalButtons() {
    file().supplier = "Halden Press";
    file().version = 2;
    file().approvers = {kMara, kOlo};
  }
  std::vector<ApprovalButtonView> buttons() {
    publish();
    return approvalButtons(store(), file(), store().currentDetail());
  }
  ApprovalButtonView button(const std::string& key) {
    for (const auto& each : buttons()) {
      if (each.key == key) return each;
    }
    return {};
  }
  void press(const std::string& key) { pressApprovalButton(store(), key); }
};

TEST_F(ApprovalButtons, HandOnTheLinkOfWhatIsOut) {
  file().approval = "pending";
  EXPECT_THAT(
      buttons(),
      ElementsAre(ApprovalButtonView{
          .key = "takeBack", .label = "Take back", .icon = "arrow.uturn.backward", .quiet = true}));
  file().share = shareOf("https://proofs.example/s/1");
  EXPECT_THAT(
      buttons(),
      ElementsAre(
          ApprovalButtonView{.key = "copyForNotion",
                             .label = "Copy for Notion",
                             .icon = "square.on.square",
                             .help = "Paste it in a Notion task and pick Embed. It shows the pages "
                                     "to compare and where it stands, to anyone with the link.",
                             .quiet = true},
          ApprovalButtonView{
              .key = "emailAgain", .label = "Email again", .icon = "envelope", .quiet = true},
          ApprovalButtonView{.key = "takeBack",
                             .label = "Take back",
                             .icon = "arrow.uturn.backward",
                             .quiet = true}));
  for (const auto& none : {std::optional<std::string>{}, std::optional<std::string>{""}}) {
    file().share = shareOf(none);
    EXPECT_EQ(buttons().size(), 1U);
  }
}

TEST_F(ApprovalButtons, OfferWhatEachStateAllows) {
  const ApprovalButtonView upload{.key = "uploadRevision",
                                  .label = "Upload revision",
                                  .icon = "arrow.up.doc",
                                  .opens = "upload"};
  ApprovalButtonView quietUpload = upload;
  quietUpload.quiet = true;
  const ApprovalButtonView again{.key = "uploadAgain",
                                 .label = "Upload again",
                                 .icon = "arrow.up.doc",
                                 .opens = "upload",
                                 .quiet = true};
  ApprovalButtonView send{
      .key = "send", .label = "Send for approval", .icon = "paperplane", .opens = "send"};
  EXPECT_THAT(buttons(), ElementsAre(quietUpload, send));
  file().approval = "changes";
  EXPECT_THAT(buttons(), ElementsAre(upload));
  file().approval = "revised";
  send.label = "Send v2 for approval";
  EXPECT_THAT(buttons(), ElementsAre(again, send));
  file().approval = "sent";
  EXPECT_THAT(buttons(), IsEmpty());
}

TEST_F(ApprovalButtons, LeadToTheSuppliersMail) {
  file().approval = "approved";
  const ApprovalButtonView sent{
      .key = "markSent", .label = "Mark sent to Halden Press", .icon = "paperplane"};
  for (const char* none : {"", "mail", "javascript:alert(1)"}) {
    file().links = Links{.gmail = none};
    EXPECT_THAT(buttons(), ElementsAre(sent)) << none;
  }
  file().links->gmail = "https://mail.example/1";
  EXPECT_THAT(buttons(), ElementsAre(ApprovalButtonView{.key = "supplierEmail",
                                                        .label = "Halden Press email",
                                                        .icon = "envelope",
                                                        .url = "https://mail.example/1",
                                                        .quiet = true},
                                     sent));
  file().supplier.reset();
  EXPECT_EQ(button("supplierEmail").label, "Supplier email");
  EXPECT_EQ(button("markSent").label, "Mark sent to supplier");
}

struct UploadLabel {
  const char* name;
  std::optional<std::string> state;
  const char* key;
};
BOOST_DESCRIBE_STRUCT(UploadLabel, (), (name, state, key))

class UploadButtons : public ApprovalButtons, public testing::WithParamInterface<UploadLabel> {};

TEST_P(UploadButtons, WaitWhileARevisionGoesUp) {
  file().approval = GetParam().state;
  EXPECT_TRUE(button(GetParam().key).enabled);
  store().busy.set({"revision"});
  EXPECT_EQ(button(GetParam().key).label, "Uploading…");
  EXPECT_FALSE(button(GetParam().key).enabled);
  store().busy.set({"approval", "share"});
  EXPECT_TRUE(button(GetParam().key).enabled) << "other errands are none of its business";
}

INSTANTIATE_TEST_SUITE_P(All, UploadButtons,
                         testing::Values(UploadLabel{"First", std::nullopt, "uploadRevision"},
                                         UploadLabel{"AfterChanges", "changes", "uploadRevision"},
                                         UploadLabel{"Again", "revised", "uploadAgain"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ApprovalButtons, WaitWhileTheRoundIsBeingMoved) {
  store().busy.set({"approval"});
  file().share = shareOf("https://proofs.example/s/1");
  file().approval.reset();
  EXPECT_FALSE(button("send").enabled);
  file().approval = "pending";
  EXPECT_FALSE(button("takeBack").enabled);
  EXPECT_TRUE(button("copyForNotion").enabled);
  EXPECT_TRUE(button("emailAgain").enabled);
  file().approval = "approved";
  EXPECT_FALSE(button("markSent").enabled);
  press("markSent");
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(ApprovalButtons, MailNobodyOnceAllHaveAnswered) {
  file().approval = "pending";
  file().share = shareOf("https://proofs.example/s/1");
  FileDetail detail = detailOf(file());
  detail.approval = Approval{.asked = {kMara, kOlo}};
  detail.approval->answers[kMara] = {.kind = "approved"};
  show(detail);
  EXPECT_TRUE(button("emailAgain").enabled);
  detail.approval->answers[kOlo] = {.kind = "approved"};
  show(detail);
  EXPECT_FALSE(button("emailAgain").enabled);
  press("emailAgain");
  EXPECT_THAT(desk.opener.opened, IsEmpty());
}

TEST_F(ApprovalButtons, MailNobodyOfARoundThatIsOver) {
  file().approval = "pending";
  file().share = shareOf("https://proofs.example/s/1");
  FileDetail detail = detailOf(file());
  detail.approval = Approval{.state = "changes", .asked = {kMara, kOlo}};
  show(detail);
  EXPECT_FALSE(button("emailAgain").enabled) << "the board is ahead of it";
  detail.approval->state = "pending";
  show(detail);
  EXPECT_TRUE(button("emailAgain").enabled);
}

TEST_F(ApprovalButtons, MailThoseWhoHaveNotAnswered) {
  file().approval = "pending";
  file().share = shareOf("https://proofs.example/s/1");
  FileDetail detail = detailOf(file());
  detail.approval = Approval{.asked = {kMara, kOlo, kTeva}};
  detail.approval->answers[kMara] = {.kind = "approved"};
  show(detail);
  publish();
  press("emailAgain");
  ASSERT_EQ(desk.opener.opened.size(), 1U);
  EXPECT_THAT(desk.opener.opened[0],
              testing::AllOf(testing::HasSubstr("olo%40tessarine.example%2Cteva%40"),
                             testing::Not(testing::HasSubstr("mara%40")),
                             testing::HasSubstr("proofs.example%2Fs%2F1")));
}

TEST_F(ApprovalButtons, CopyTheLinkForNotion) {
  file().approval = "pending";
  file().share = shareOf("https://proofs.example/s/1");
  publish();
  press("copyForNotion");
  EXPECT_THAT(desk.clipboard.texts, ElementsAre("https://proofs.example/s/1"));
}

TEST_F(ApprovalButtons, MoveTheRoundOnce) {
  file().approval = "pending";
  publish();
  press("takeBack");
  press("takeBack");
  EXPECT_THAT(asked(), ElementsAre(R"(POST api/files/t1/approval {"action":"withdraw"})"));
}

TEST_F(ApprovalButtons, MarkWhatWasPassedOn) {
  file().approval = "approved";
  publish();
  press("takeBack");
  EXPECT_THAT(asked(), IsEmpty()) << "it is not offered any more";
  press("markSent");
  EXPECT_THAT(asked(), ElementsAre(R"(POST api/files/t1/approval {"action":"sent"})"));
}

TEST_F(ApprovalButtons, DoNothingWithoutATicket) {
  file().approval = "pending";
  publish();
  for (const std::set<std::string>& selection : {std::set<std::string>{}, {"t1", "t2"}, {"gone"}}) {
    store().selection.set(selection);
    press("takeBack");
  }
  EXPECT_THAT(asked(), IsEmpty());
}

}  // namespace
}  // namespace vellix
