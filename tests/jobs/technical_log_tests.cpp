// The raw log of a job: asked for, shown and hidden.
#include "jobs/technical_log.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

class TechnicalLogs : public testing::Test {
 protected:
  void expectHidden() {
    EXPECT_EQ(log.job(), "");
    EXPECT_FALSE(log.loading());
    EXPECT_EQ(log.text(), std::nullopt);
  }
  void expectLoading(const std::string& job) {
    EXPECT_EQ(log.job(), job);
    EXPECT_TRUE(log.loading());
    EXPECT_EQ(log.text(), std::nullopt);
  }
  void expectText(const std::string& job, const std::string& text) {
    EXPECT_EQ(log.job(), job);
    EXPECT_FALSE(log.loading());
    EXPECT_EQ(log.text(), text);
  }

  TechnicalLog log;
};

TEST_F(TechnicalLogs, AreHiddenAtFirst) { expectHidden(); }

TEST_F(TechnicalLogs, AreAskedForByAPress) {
  const auto request = log.press("a");
  ASSERT_TRUE(request);
  EXPECT_EQ(request->job, "a");
  expectLoading("a");
  log.arrived(*request, "09:41 began");
  expectText("a", "09:41 began");
}

TEST_F(TechnicalLogs, AreHiddenByTheSecondPress) {
  const auto request = log.press("a");
  log.arrived(*request, "09:41 began");
  EXPECT_FALSE(log.press("a")) << "asked for once";
  expectHidden();
}

TEST_F(TechnicalLogs, AreHiddenByTheSecondPressBeforeTheyHaveCome) {
  const auto request = log.press("a");
  EXPECT_FALSE(log.press("a"));
  expectHidden();
  log.arrived(*request, "late");
  expectHidden();
}

TEST_F(TechnicalLogs, AreFetchedAnewEachTime) {
  log.arrived(*log.press("a"), "old");
  log.press("a");
  const auto again = log.press("a");
  ASSERT_TRUE(again);
  expectLoading("a");
  log.arrived(*again, "new");
  expectText("a", "new");
}

TEST_F(TechnicalLogs, TakeTheAnswerToTheLastPressAlone) {
  const auto first = log.press("a");
  log.press("a");
  const auto third = log.press("a");
  log.arrived(*first, "old");
  expectLoading("a");
  log.arrived(*first, std::nullopt);
  expectLoading("a");
  log.arrived(*third, "new");
  log.arrived(*third, "told twice");
  log.arrived(*first, "old");
  expectText("a", "new");
}

TEST_F(TechnicalLogs, GiveWayToThatOfAnotherJob) {
  const auto one = log.press("a");
  const auto other = log.press("b");
  ASSERT_TRUE(other);
  expectLoading("b");
  log.arrived(*one, "of a");
  expectLoading("b");
  log.arrived(*other, "of b");
  expectText("b", "of b");
  log.press("a");
  expectLoading("a");
}

TEST_F(TechnicalLogs, AreHiddenWhenTheyCannotBeHad) {
  log.arrived(*log.press("a"), std::nullopt);
  expectHidden();
  EXPECT_TRUE(log.press("a")) << "the next press asks again";
}

TEST_F(TechnicalLogs, AreShownEmptyToo) {
  log.arrived(*log.press("a"), "");
  expectText("a", "");
}

TEST_F(TechnicalLogs, EndWithThePanelAndTheSession) {
  log.arrived(*log.press("a"), "09:41 began");
  log.discard();
  expectHidden();
  const auto before = log.press("a");
  log.discard();
  log.arrived(*before, "late");
  expectHidden();
  const auto after = log.press("a");
  log.arrived(*before, "of the session before");
  expectLoading("a");
  log.arrived(*after, "of this one");
  expectText("a", "of this one");
}

TEST_F(TechnicalLogs, AreNotOfAJobWithoutAnId) {
  EXPECT_FALSE(log.press(""));
  expectHidden();
  log.arrived(*log.press("a"), "09:41 began");
  EXPECT_FALSE(log.press(""));
  expectHidden();
}

}  // namespace
}  // namespace vellix
