// The card of a round: each state, with the detail here or not, its newest version being checked or
// not.
#include "approval/approval_card.hpp"

#include <gmock/gmock.h>

#include "approval/approval_card_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct CardCase {
  const char* name;
  std::optional<std::string> state;
  const char* icon;
  const char* tone;
  const char* title;  // before the detail is here
  const char* line;
  const char* titleKnown;  // once it is
  const char* lineKnown;
  const char* lineChecking;  // and the newest version is being checked
  std::vector<std::string> buttons;
  bool tellsChanges;
};
BOOST_DESCRIBE_STRUCT(CardCase, (),
                      (name, state, icon, tone, title, line, titleKnown, lineKnown, lineChecking,
                       buttons, tellsChanges))

class EachApprovalState : public ApprovalCards, public testing::WithParamInterface<CardCase> {
 protected:
  EachApprovalState() { file().approval = GetParam().state; }
  void expectHead(const ApprovalCardView& view, bool checking) {
    EXPECT_TRUE(view.here);
    EXPECT_EQ(view.icon, GetParam().icon);
    EXPECT_EQ(view.tone, GetParam().tone);
    EXPECT_EQ(view.checking, checking);
    EXPECT_EQ(labels(view), GetParam().buttons);
  }
};

TEST_P(EachApprovalState, ReadsFromTheTicketAlone) {
  const auto view = cardWithoutDetail();
  expectHead(view, false);
  EXPECT_EQ(view.title, GetParam().title);
  EXPECT_EQ(view.line, GetParam().line);
  EXPECT_THAT(view.approvers, IsEmpty());
  EXPECT_THAT(view.changes, IsEmpty());
}

TEST_P(EachApprovalState, ReadsFromTheRound) {
  const auto view = card();
  expectHead(view, false);
  EXPECT_EQ(view.title, GetParam().titleKnown);
  EXPECT_EQ(view.line, GetParam().lineKnown);
  EXPECT_EQ(view.approvers.size(), 3U);
  EXPECT_EQ(view.changes.size(), GetParam().tellsChanges ? 1U : 0U);
}

TEST_P(EachApprovalState, SpinsWhileTheNewestVersionIsChecked) {
  detail.versions->back().status = "checking";
  auto view = card();
  expectHead(view, true);
  EXPECT_EQ(view.title, GetParam().titleKnown);
  EXPECT_EQ(view.line, GetParam().lineChecking);
  detail.versions->back().status = "done";
  detail.versions->front().status = "checking";
  view = card();
  EXPECT_FALSE(view.checking) << "an older one does not count";
}

constexpr const char* kPlain =
    "When it looks right, send it to the creative team. They approve it or ask for changes in "
    "their "
    "browser.";
constexpr const char* kAskedKnown = "Asked by You · 5 min ago. “Look at the cover”";
constexpr const char* kReady = "Ready to send to Halden Press. Every approver said yes.";
constexpr const char* kBack = "Back with Jorvas. Make the fix, then upload the revision.";
constexpr const char* kShield = "person.badge.shield.checkmark";
const std::vector<std::string> kFirst{"Upload revision", "Send for approval"};

INSTANTIATE_TEST_SUITE_P(
    All, EachApprovalState,
    testing::Values(CardCase{"Absent", std::nullopt, kShield, "gray", "Approval", kPlain,
                             "Approval", kPlain, kPlain, kFirst, false},
                    CardCase{"Unknown", "on_hold", kShield, "gray", "Approval", kPlain, "Approval",
                             kPlain, kPlain, kFirst, false},
                    CardCase{"Pending",
                             "pending",
                             "clock",
                             "amber",
                             "Waiting on Mara and Olo",
                             "Asked by Claude · ",
                             "Waiting on Mara and Teva",
                             kAskedKnown,
                             kAskedKnown,
                             {"Take back"},
                             false},
                    CardCase{"Changes",
                             "changes",
                             "arrow.uturn.backward",
                             "red",
                             "Olo asked for changes on v3",
                             kBack,
                             "Olo asked for changes on v3",
                             kBack,
                             kBack,
                             {"Upload revision"},
                             true},
                    CardCase{"Revised",
                             "revised",
                             "arrow.triangle.2.circlepath",
                             "blue",
                             "v3 is up. Send it back for approval.",
                             "",
                             "v3 is up. Send it back for approval.",
                             "Two pages moved. “Fixed p25”",
                             "Checking v3 against v2…",
                             {"Upload again", "Send v3 for approval"},
                             true},
                    CardCase{"Approved",
                             "approved",
                             "checkmark.seal",
                             "green",
                             "Approved by Mara and Olo",
                             kReady,
                             "Approved by Mara, Olo and Teva",
                             kReady,
                             kReady,
                             {"Mark sent to Halden Press"},
                             false},
                    CardCase{"Sent",
                             "sent",
                             "paperplane",
                             "green",
                             "Approved and sent to Halden Press",
                             "By Olo · 10 min ago",
                             "Approved and sent to Halden Press",
                             "By Olo · 10 min ago",
                             "By Olo · 10 min ago",
                             {},
                             false}),
    [](const auto& each) { return each.param.name; });

TEST_F(ApprovalCards, WaitForNobodyOnceAllHaveAnswered) {
  file().approval = "pending";
  for (const char* who : {kMara, kOlo, kTeva}) detail.approval->answers[who] = {.kind = "approved"};
  EXPECT_EQ(card().title, "Waiting for approval");
  file().approvers.reset();
  EXPECT_EQ(cardWithoutDetail().title, "Waiting for approval");
}

TEST_F(ApprovalCards, TakeAnAnswerOfNoKindForNone) {
  file().approval = "pending";
  detail.approval->answers = {{kMara, {.kind = ""}}, {kOlo, {.kind = "approved"}}};
  EXPECT_EQ(card().title, "Waiting on Mara and Teva");
  EXPECT_EQ(card().approvers[0].pill.text, "Waiting");
}

TEST_F(ApprovalCards, WaitForEachOnceThoughAskedTwice) {
  file().approval = "pending";
  detail.approval->asked = {kMara, "", kMara};
  EXPECT_EQ(card().title, "Waiting on Mara");
  EXPECT_EQ(card().approvers.size(), 1U);
}

TEST_F(ApprovalCards, GoByTheTicketWhereTheDetailHasNoRound) {
  file().approval = "pending";
  detail.approval.reset();
  const auto view = card();
  EXPECT_EQ(view.title, "Waiting on Mara and Olo");
  EXPECT_EQ(view.line, "Asked by Claude · ");
  EXPECT_THAT(view.approvers, IsEmpty());
}

TEST_F(ApprovalCards, QuoteNoNoteThatIsEmpty) {
  file().approval = "pending";
  for (const auto& note : {std::optional<std::string>{}, std::optional<std::string>{""},
                           std::optional<std::string>{" "}}) {
    detail.approval->note = note;
    EXPECT_EQ(card().line, "Asked by You · 5 min ago");
  }
}

struct RevisedCase {
  const char* name;
  std::optional<std::string> summary;
  std::optional<std::string> note;
  const char* line;
};
BOOST_DESCRIBE_STRUCT(RevisedCase, (), (name, summary, note, line))

class RevisedLines : public ApprovalCards, public testing::WithParamInterface<RevisedCase> {};

TEST_P(RevisedLines, TellWhatThereIs) {
  file().approval = "revised";
  detail.versions->back().summary = GetParam().summary;
  detail.versions->back().note = GetParam().note;
  EXPECT_EQ(card().line, GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(All, RevisedLines,
                         testing::Values(RevisedCase{"Both", "Fine.", "p2", "Fine. “p2”"},
                                         RevisedCase{"SummaryAlone", "Fine.", "", "Fine."},
                                         RevisedCase{"NoteAlone", std::nullopt, "p2", "“p2”"},
                                         RevisedCase{"EmptySummary", "", "p2", "“p2”"},
                                         RevisedCase{"Neither", std::nullopt, std::nullopt, ""},
                                         RevisedCase{"Blanks", " ", " ", ""}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ApprovalCards, CheckAFirstVersionAgainstTheOneBefore) {
  file().approval = "revised";
  file().version.reset();
  detail.versions = std::vector<Version>{versionOf(1, "checking")};
  EXPECT_EQ(card().line, "Checking v1 against v0…");
}

TEST_F(ApprovalCards, StandWithoutASupplier) {
  for (const auto& none : {std::optional<std::string>{}, std::optional<std::string>{" "}}) {
    file().supplier = none;
    file().approval = "approved";
    EXPECT_EQ(card().line, "Ready to send to the supplier. Every approver said yes.");
    EXPECT_THAT(labels(card()), ElementsAre("Mark sent to supplier"));
    file().approval = "sent";
    EXPECT_EQ(card().title, "Approved and sent to the supplier");
  }
}

TEST_F(ApprovalCards, BearThatNobodyIsKnown) {
  file().approval = "approved";
  file().approvers.reset();
  EXPECT_EQ(cardWithoutDetail().title, "Approved");
  file().approval = "sent";
  file().approval_by.reset();
  file().approval_at.reset();
  EXPECT_EQ(cardWithoutDetail().line, "By Claude · ");
  file().approval = "changes";
  file().assignee.reset();
  EXPECT_EQ(cardWithoutDetail().line, "Back with Claude. Make the fix, then upload the revision.");
}

}  // namespace
}  // namespace vellix
