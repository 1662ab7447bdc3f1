// Who was asked, what they answered, and what they want changed.
#include <gmock/gmock.h>

#include "approval/approval_card_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ApprovalAnswers : public ApprovalCards {};

TEST_F(ApprovalAnswers, NameWhoAskedForChanges) {
  file().approval = "changes";
  detail.approval->answers[kTeva] = {.kind = "changes"};
  detail.approval->answers[kMara] = {.kind = "approved"};
  EXPECT_EQ(card().title, "Olo and Teva asked for changes on v3") << "in the order of asking";
  detail.approval->answers["a.guest@elsewhere.example"] = {.kind = "changes"};
  EXPECT_EQ(card().title, "Olo, Teva and A.guest asked for changes on v3");
  detail.approval->answers.clear();
  EXPECT_EQ(card().title, "Olo asked for changes on v3") << "as the ticket tells";
  file().approval_by.reset();
  file().version.reset();
  EXPECT_EQ(card().title, "Claude asked for changes on v1");
}

TEST_F(ApprovalAnswers, TellEachApproversAnswer) {
  file().approval = "pending";
  detail.approval->answers = {{kMara, {.kind = "approved"}}, {kTeva, {.kind = "whatever"}}};
  const PillView yes{.text = "Approved", .icon = "checkmark", .tone = "green"};
  const PillView none{.text = "Waiting", .icon = "clock", .tone = "gray"};
  const PillView changes{.text = "Changes", .icon = "arrow.uturn.backward", .tone = "red"};
  EXPECT_THAT(card().approvers,
              ElementsAre(ApproverAnswerView{kMara, "Mara", yes, "Mara, Approved"},
                          ApproverAnswerView{kOlo, "Olo", none, "Olo, Waiting"},
                          ApproverAnswerView{kTeva, "Teva", changes, "Teva, Changes"}));
  detail.approval->asked.clear();
  EXPECT_THAT(card().approvers, IsEmpty());
}

TEST_F(ApprovalAnswers, QuoteWhatIsToBeChanged) {
  file().approval = "changes";
  detail.approval->answers[kTeva] = {.kind = "changes", .note = " "};
  detail.approval->answers[kMara] = {.kind = "approved", .note = "Lovely"};
  EXPECT_THAT(
      card().changes,
      ElementsAre(ChangesAskedView{kOlo, "Olo asked for changes · 2 min ago", "The red is off"},
                  ChangesAskedView{kTeva, "Teva asked for changes · ", ""}));
}

}  // namespace
}  // namespace vellix
