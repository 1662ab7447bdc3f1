// Which findings a page has, in which order, and what is said of the page.
#include "inspector/findings_panel.hpp"

#include "inspector/panel_test.hpp"

namespace vellix {
namespace {

using Texts = std::vector<std::string>;
using Keys = std::set<std::string>;

struct Roles {
  const char* name;
  std::optional<Int> version;
  const char* track;
  Keys shown;
  Keys onPage;
  Texts roles;
};
BOOST_DESCRIBE_STRUCT(Roles, (), (name, version, track, shown, onPage, roles))

class ComparedRoles : public PanelTest, public testing::WithParamInterface<Roles> {};

TEST_P(ComparedRoles, AreThoseAFindingMayPointTo) {
  const auto& each = GetParam();
  detail.version = each.version;
  detail.file.track = each.track;
  store().shown.set(each.shown);
  Page& page = detail.file.pages->front();
  page.refs.emplace();
  for (const auto& role : each.onPage) page.refs->emplace(role, RefPage{});
  EXPECT_EQ(comparedRoles(store(), detail, &page), each.roles);
}

const Keys kAll{"submitted", "supplier", "third"};
const Keys kEvery{"submitted", "previous", "latest", "fbc"};

INSTANTIATE_TEST_SUITE_P(
    All, ComparedRoles,
    testing::Values(
        Roles{"NewTitle", 1, "new_title", kAll, kEvery, {"submitted", "fbc", "latest"}},
        Roles{"Reprint", 1, "reprint", kAll, kEvery, {"submitted", "latest", "fbc"}},
        Roles{"VersionUntold", {}, "new_title", kAll, kEvery, {"submitted", "fbc", "latest"}},
        Roles{"WithoutSubmitted", 1, "new_title", {"third"}, kEvery, {"fbc", "latest"}},
        Roles{"WithoutThird", 1, "new_title", {"submitted"}, kEvery, {"submitted"}},
        Roles{"AllOff", 1, "new_title", {"supplier"}, kEvery, {}},
        Roles{"Revision", 2, "new_title", kAll, kEvery, {"previous"}},
        Roles{"RevisionWithoutThird", 2, "new_title", {"submitted", "supplier"}, kEvery, {}},
        Roles{"OnlyWhatThePageHas", 1, "new_title", kAll, {"latest"}, {"latest"}},
        Roles{"RevisionWithoutItsPage", 2, "new_title", kAll, {"submitted"}, {}}),
    [](const auto& each) { return each.param.name; });

TEST_F(PanelTest, ComparesNothingWithoutAPageOrReferences) {
  EXPECT_TRUE(comparedRoles(store(), detail, nullptr).empty());
  const Page bare = pageOf(0);
  EXPECT_TRUE(comparedRoles(store(), detail, &bare).empty());
}

TEST_F(PanelTest, ShowsTheRealFindingsOfItsPage) {
  detail.findings = {finding("here", {}),
                     finding("there", {.page = 1}),
                     finding("ours", {.kind = "expected"}),
                     finding("passed", {.kind = "pass"}),
                     finding("unseen", {.against = "previous"}),
                     finding("alone", {.kind = "barcode", .against = "previous"})};
  EXPECT_EQ(cards(), (Texts{"here", "alone"}));
  goTo(1);
  EXPECT_EQ(cards(), Texts{"there"});
}

TEST_F(PanelTest, KeepsTheFiveKindsWithoutAReferenceWhenAllIsOff) {
  store().shown.set({"supplier"});
  for (const char* kind :
       {"words", "hidden", "fonts", "barcode", "spots", "pass", "missing_page", "extra_page"}) {
    detail.findings.push_back(finding(kind, {.kind = kind}));
  }
  EXPECT_EQ(cards(), (Texts{"hidden", "barcode", "spots", "missing_page"}));
}

TEST_F(PanelTest, PutsTheOpenFirstAndTheWorstFirst) {
  for (const char* state : {"fine", "issue", "open"}) {
    for (const char* severity : {"low", "medium", "high"}) {
      detail.findings.push_back(
          finding(std::string{state} + " " + severity, {.severity = severity, .state = state}));
    }
  }
  EXPECT_EQ(cards(), (Texts{"open high", "open medium", "open low", "issue high", "issue medium",
                            "issue low", "fine high", "fine medium", "fine low"}));
}

TEST_F(PanelTest, KeepsTheServicesOrderAmongEquals) {
  detail.findings = {finding("b", {.severity = "high"}), finding("c", {.severity = "medium"}),
                     finding("a", {.severity = "high"})};
  detail.findings[0].ord = 9;
  EXPECT_EQ(cards(), (Texts{"b", "a", "c"}));
}

TEST_F(PanelTest, RanksTheUnknownAsMediumAndOpen) {
  detail.findings = {finding("low", {.severity = "low"}),
                     finding("issue", {.severity = "high", .state = "issue"}),
                     finding("unknown", {.severity = "grave", .state = "odd"}),
                     finding("medium", {.severity = "medium"}), finding("high", {})};
  EXPECT_EQ(cards(), (Texts{"high", "unknown", "medium", "low", "issue"}));
}

TEST_F(PanelTest, IsHeadedByThePageAndTheCount) {
  EXPECT_EQ(head().file, "t1");
  EXPECT_EQ(head().title, "Page 1");
  EXPECT_EQ(head().found, "Matches");
  detail.findings = {finding("a", {}), finding("b", {.kind = "pass"})};
  EXPECT_EQ(head().found, "1 found");
  EXPECT_EQ(head().calm, "");
  EXPECT_EQ(head().calmReason, "");
  detail.file.pages->front().label = "cover";
  EXPECT_EQ(head().title, "Page cover");
}

TEST_F(PanelTest, WarnsOfAPageWithoutLiveText) {
  EXPECT_EQ(head().notice, "");
  detail.file.pages->front().ocr = false;
  EXPECT_EQ(head().notice, "");
  detail.file.pages->front().ocr = true;
  EXPECT_EQ(head().notice,
            "This page has no live text, so its words were read from the picture. Check them by "
            "eye.");
}

struct Calm {
  const char* name;
  Int version;
  const char* track;
  Keys shown;
  const char* reason;
};
BOOST_DESCRIBE_STRUCT(Calm, (), (name, version, track, shown, reason))

class Calms : public PanelTest, public testing::WithParamInterface<Calm> {};

TEST_P(Calms, SayWhatMatches) {
  const auto& each = GetParam();
  detail.version = each.version;
  detail.file.track = each.track;
  store().shown.set(each.shown);
  detail.findings = {finding("passed", {.kind = "pass"})};
  for (const bool showPassed : {true, false}) {
    store().prefs.showPassed.set(showPassed);
    EXPECT_EQ(head().calm, "Nothing different here.");
    EXPECT_EQ(head().calmReason, each.reason);
    EXPECT_EQ(head().found, "Matches");
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, Calms,
    testing::Values(
        Calm{
            "Nothing", 1, "", {"supplier"}, "No file of ours was found to compare with this page."},
        Calm{"Sent", 1, "", {"submitted"}, "The words, breaks, fonts and art match what we sent."},
        Calm{"Thirds",
             1,
             "",
             {"third"},
             "The words, breaks, fonts and art match the FBC and last print."},
        Calm{"AllOfAReprint", 1, "reprint", kAll,
             "The words, breaks, fonts and art match what we sent and last print and the FBC."},
        Calm{"Previous", 2, "", kAll, "The words, breaks, fonts and art match last version."}),
    [](const auto& each) { return each.param.name; });

TEST_F(PanelTest, StandsOverATicketWithoutPages) {
  detail.file.pages.reset();
  EXPECT_EQ(head().title, "Page 1");
  EXPECT_EQ(head().calmReason, "No file of ours was found to compare with this page.");
}

}  // namespace
}  // namespace vellix
