// The checks of a page that came out well.
#include "inspector/panel_test.hpp"

namespace vellix {
namespace {

using Texts = std::vector<std::string>;

class PassedFindings : public PanelTest {
 protected:
  Texts passed() {
    Texts ids;
    for (const auto& card : panel().passed) ids.push_back(card.id);
    return ids;
  }
};

struct SummaryCase {
  const char* name;
  int edits;
  int checks;
  const char* summary;
};
BOOST_DESCRIBE_STRUCT(SummaryCase, (), (name, edits, checks, summary))

class PassedSummaries : public PassedFindings, public testing::WithParamInterface<SummaryCase> {};

TEST_P(PassedSummaries, CountThem) {
  for (int i = 0; i < GetParam().edits; ++i) {
    detail.findings.push_back(finding("e" + std::to_string(i), {.kind = "expected"}));
  }
  for (int i = 0; i < GetParam().checks; ++i) {
    detail.findings.push_back(finding("p" + std::to_string(i), {.kind = "pass"}));
  }
  EXPECT_EQ(head().passed, GetParam().summary);
  EXPECT_EQ(passed().size(), static_cast<std::size_t>(GetParam().edits + GetParam().checks));
  EXPECT_EQ(head().found, "Matches");
}

INSTANTIATE_TEST_SUITE_P(All, PassedSummaries,
                         testing::Values(SummaryCase{"None", 0, 0, ""},
                                         SummaryCase{"OneEdit", 1, 0, "1 of our edit came through"},
                                         SummaryCase{"Edits", 3, 0, "3 of our edits came through"},
                                         SummaryCase{"OneCheck", 0, 1, "1 check passed"},
                                         SummaryCase{"Checks", 0, 4, "4 checks passed"},
                                         SummaryCase{"Both", 1, 1, "2 checked and fine"},
                                         SummaryCase{"MostlyEdits", 3, 1, "4 checked and fine"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(PassedFindings, AreThoseOfThePageInTheServicesOrder) {
  detail.findings = {finding("p2", {.kind = "pass", .severity = "low"}),
                     finding("there", {.page = 1, .kind = "pass"}),
                     finding("hidden", {.kind = "expected", .against = "elsewhere"}),
                     finding("always", {.kind = "pass", .against = "elsewhere"}),
                     finding("e1", {.kind = "expected", .state = "fine"}),
                     finding("real", {})};
  EXPECT_EQ(passed(), (Texts{"p2", "always", "e1"}));
  EXPECT_EQ(head().passed, "3 checked and fine");
}

TEST_F(PassedFindings, StayAwayWhereNobodyWantsThem) {
  detail.findings = {finding("p1", {.kind = "pass"})};
  store().prefs.showPassed.set(false);
  EXPECT_EQ(passed(), Texts{});
  EXPECT_EQ(head().passed, "");
  EXPECT_EQ(head().calm, "Nothing different here.");
}

}  // namespace
}  // namespace vellix
