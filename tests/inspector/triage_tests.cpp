// What the presses on a card do.
#include "inspector/panel_test.hpp"

namespace vellix {
namespace {

class Triage : public PanelTest {
 protected:
  Triage() {
    detail.findings = {finding("f1", {})};
    show();
  }
  void stateIs(std::string state) {
    detail.findings.front().state = std::move(state);
    show();
  }
  std::string held() { return store().details().at("t1").findings.front().state; }
  // The bodies that went out for the finding so far.
  std::vector<std::string> sent() {
    desk.time.run();
    std::vector<std::string> bodies;
    for (const auto* exchange : desk.http.matching("POST api/findings/f1")) {
      bodies.push_back(exchange->request.body.value_or(""));
    }
    return bodies;
  }
};

using Bodies = std::vector<std::string>;

struct Press {
  const char* name;
  void (*press)(Store&, const std::string&);
  const char* before;
  const char* after;
};
BOOST_DESCRIBE_STRUCT(Press, (), (name, before, after))

class Presses : public Triage, public testing::WithParamInterface<Press> {};

TEST_P(Presses, SendTheStateThatFollows) {
  stateIs(GetParam().before);
  GetParam().press(store(), "f1");
  EXPECT_EQ(held(), GetParam().after) << "at once";
  EXPECT_EQ(sent(), Bodies{std::string{R"({"state":")"} + GetParam().after + R"("})"});
}

INSTANTIATE_TEST_SUITE_P(All, Presses,
                         testing::Values(Press{"IssueOfOpen", pressRealIssue, "open", "issue"},
                                         Press{"IssueOfIssue", pressRealIssue, "issue", "open"},
                                         Press{"IssueOfFine", pressRealIssue, "fine", "issue"},
                                         Press{"FineOfOpen", pressFine, "open", "fine"},
                                         Press{"FineOfIssue", pressFine, "issue", "fine"},
                                         Press{"FineOfFine", pressFine, "fine", "open"},
                                         Press{"FineOfTheUnknown", pressFine, "odd", "fine"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(Triage, FinePressedTwiceLeavesTheFindingOpen) {
  pressFine(store(), "f1");
  pressFine(store(), "f1");
  EXPECT_EQ(held(), "open");
  EXPECT_EQ(sent(), (Bodies{R"({"state":"fine"})", R"({"state":"open"})"}));
}

TEST_F(Triage, PressesForAFindingThatIsGoneSendNothing) {
  pressRealIssue(store(), "f9");
  pressFine(store(), "f9");
  pressCard(store(), "f9");
  store().selection.set({});
  pressRealIssue(store(), "f1");
  desk.time.run();
  EXPECT_EQ(desk.http.count("POST"), 0U);
  EXPECT_FALSE(store().focus());
}

TEST_F(Triage, PressingTheCardTogglesItsFocus) {
  pressCard(store(), "f1");
  EXPECT_EQ(store().focus(), "f1");
  pressCard(store(), "f1");
  EXPECT_FALSE(store().focus());
}

TEST_F(Triage, PressingAnotherCardMovesTheFocus) {
  store().focus.set("f2");
  pressCard(store(), "f1");
  EXPECT_EQ(store().focus(), "f1");
}

TEST_F(Triage, PressingACardWithoutABoxDoesNothing) {
  detail.findings.front().box.reset();
  show();
  store().focus.set("f2");
  pressCard(store(), "f1");
  EXPECT_EQ(store().focus(), "f2");
}

TEST_F(Triage, ANoteOnAFindingBeginsAtItsPlace) {
  detail.findings = {finding("f1", {.page = 3})};
  detail.findings.front().box = {0.5, 0.25, 0.125, 0.0625, 9};
  show();
  store().focus.set("f2");
  pressNote(store(), "f1");
  EXPECT_EQ(store().draft(), (DraftNote{.fileID = "t1",
                                        .page = 3,
                                        .side = "supplier",
                                        .x = 0.5,
                                        .y = 0.25,
                                        .w = 0.125,
                                        .h = 0.0625,
                                        .findingID = "f1"}));
  EXPECT_EQ(store().focus(), "f2") << "which is another matter";
  desk.time.run();
  EXPECT_EQ(desk.http.count("POST"), 0U);
}

TEST_F(Triage, ANoteOnAFindingShowsThePageItIsWrittenOn) {
  store().shown.set({"submitted"});
  pressNote(store(), "f1");
  EXPECT_EQ(store().shown(), (std::set<std::string>{"submitted", "supplier"}));
}

TEST_F(Triage, ANoteNeedsAFindingWithAPlace) {
  detail.findings.front().box = {0.5, 0.25, 0.125};
  show();
  pressNote(store(), "f1");
  pressNote(store(), "f9");
  detail.findings.front().box.reset();
  show();
  pressNote(store(), "f1");
  EXPECT_FALSE(store().draft());
}

}  // namespace
}  // namespace vellix
