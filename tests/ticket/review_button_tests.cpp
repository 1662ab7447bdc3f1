#include "ticket/review_button.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

struct ReviewCase {
  const char* status;
  ReviewButtonView shown;
  const char* body;
};
BOOST_DESCRIBE_STRUCT(ReviewCase, (), (status, shown, body))

class ReviewButtons : public StoreTest, public testing::WithParamInterface<ReviewCase> {
 protected:
  void SetUp() override {
    store().board.set(boardOf({ticketOf("t1", GetParam().status)}));
    store().selection.set({"t1"});
  }
  void press() {
    pressReviewButton(store());
    desk.time.run();
  }
};

TEST_P(ReviewButtons, SendWhatTheySay) {
  EXPECT_EQ(reviewButton(store()), GetParam().shown);
  press();
  ASSERT_EQ(desk.http.count("POST api/files/t1/status"), 1U);
  EXPECT_EQ(desk.http.exchanges[0].request.body, GetParam().body);
}

TEST_P(ReviewButtons, WaitWhileAStatusIsOnItsWay) {
  store().busy.set({"status"});
  ReviewButtonView waiting = GetParam().shown;
  waiting.enabled = false;
  EXPECT_EQ(reviewButton(store()), waiting);
  press();
  EXPECT_TRUE(desk.http.exchanges.empty());
  store().busy.set({"due", "report"});
  EXPECT_TRUE(reviewButton(store()).enabled) << "other errands are none of its business";
}

TEST_P(ReviewButtons, NeedExactlyOneTicket) {
  store().selection.set({"t1", "t2"});
  EXPECT_EQ(reviewButton(store()), ReviewButtonView{});
  press();
  EXPECT_TRUE(desk.http.exchanges.empty());
}

constexpr const char* kReviewed = R"({"status":"reviewed"})";

ReviewButtonView mark() {
  return {.text = "Mark reviewed", .icon = "checkmark", .ends = true, .enabled = true};
}

INSTANTIATE_TEST_SUITE_P(
    All, ReviewButtons,
    testing::Values(ReviewCase{"new", mark(), kReviewed},
                    ReviewCase{"in_review", mark(), kReviewed},
                    ReviewCase{"anything", mark(), kReviewed},
                    ReviewCase{"reviewed",
                               {.text = "Reopen", .icon = "arrow.uturn.backward", .enabled = true},
                               R"({"status":"in_review"})"}),
    [](const auto& each) { return each.param.status; });

}  // namespace
}  // namespace vellix
