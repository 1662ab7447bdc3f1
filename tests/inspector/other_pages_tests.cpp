// What is still open on other pages.
#include "inspector/panel_test.hpp"

namespace vellix {
namespace {

using Texts = std::vector<std::string>;

class OtherPages : public PanelTest {
 protected:
  Texts others() {
    Texts all;
    for (const auto& each : panel().others) all.push_back(each.name + ": " + each.count);
    return all;
  }
};

TEST_F(OtherPages, CountWhatIsOpenByPage) {
  detail.findings = {finding("a", {.page = 4}), finding("b", {.page = 2}),
                     finding("c", {.page = 4}), finding("here", {})};
  EXPECT_EQ(others(), (Texts{"Page 3: 1 to look at", "Page 5: 2 to look at"}));
  EXPECT_EQ(panel().others.at(0).page, 2);
}

TEST_F(OtherPages, LeaveOutThePageOnShow) {
  detail.findings = {finding("a", {.page = 0}), finding("b", {.page = 1})};
  EXPECT_EQ(others(), Texts{"Page 2: 1 to look at"});
  goTo(1);
  EXPECT_EQ(others(), Texts{"Page 1: 1 to look at"});
}

TEST_F(OtherPages, LeaveOutWhatIsDecidedSlightOrNoDifference) {
  detail.findings = {finding("issue", {.page = 1, .state = "issue"}),
                     finding("fine", {.page = 2, .state = "fine"}),
                     finding("odd", {.page = 3, .state = "odd"}),
                     finding("low", {.page = 4, .severity = "low"}),
                     finding("ours", {.page = 5, .kind = "expected"}),
                     finding("passed", {.page = 6, .kind = "pass"}),
                     finding("against", {.page = 7, .against = "previous"})};
  EXPECT_EQ(others(), Texts{});
}

TEST_F(OtherPages, TakeAnySeverityButLow) {
  detail.findings = {finding("medium", {.page = 1, .severity = "medium"}),
                     finding("odd", {.page = 2, .severity = "grave"})};
  EXPECT_EQ(others(), (Texts{"Page 2: 1 to look at", "Page 3: 1 to look at"}));
}

TEST_F(OtherPages, KeepTheKindsWithoutAReference) {
  store().shown.set({"supplier"});
  detail.findings = {finding("a", {.page = 1, .kind = "missing_page", .against = "previous"}),
                     finding("b", {.page = 2})};
  EXPECT_EQ(others(), Texts{"Page 2: 1 to look at"});
}

TEST_F(OtherPages, CompareWithWhatThePageOnShowHas) {
  detail.findings = {finding("a", {.page = 1})};
  detail.file.pages->front().refs->erase("submitted");
  EXPECT_EQ(others(), Texts{});
}

TEST_F(OtherPages, AreTheTwelveLowest) {
  for (Int page = 20; page > 0; --page) {
    detail.findings.push_back(finding("f" + std::to_string(page), {.page = page}));
  }
  const auto all = others();
  ASSERT_EQ(all.size(), 12U);
  EXPECT_EQ(all.front(), "Page 2: 1 to look at");
  EXPECT_EQ(all.back(), "Page 13: 1 to look at");
}

TEST_F(OtherPages, GoByTheirOwnNames) {
  (*detail.file.pages)[2].label = "iv";
  detail.findings = {finding("a", {.page = 2})};
  EXPECT_EQ(others(), Texts{"Page iv: 1 to look at"});
}

TEST_F(OtherPages, ThatTheTicketDoesNotHaveAreCountedFromOne) {
  detail.findings = {finding("a", {.page = kPages}),
                     finding("b", {.page = std::numeric_limits<Int>::max()})};
  EXPECT_EQ(others(), (Texts{"Page 31: 1 to look at", "Page 9223372036854775808: 1 to look at"}));
}

}  // namespace
}  // namespace vellix
