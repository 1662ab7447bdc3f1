// Deciding a finding: what shows at once, and where the focus goes.
#include <gmock/gmock.h>

#include "store/finding_test.hpp"

namespace vellix {
namespace {

class FindingState : public FindingTest {};

TEST_F(FindingState, ShowsAtOnceAheadOfAnyRequest) {
  show({findingOf("f0"), findingOf("f1"), findingOf("f2")});
  desk.time.advance(Milliseconds{1'234});
  store().setFindingState(findingOf("f1"), "issue");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(held().state, "issue");
  EXPECT_EQ(held().state_by, "renny@tessarine.example");
  EXPECT_EQ(held().state_at, 1'700'000'001'234.0);
  EXPECT_TRUE(store().busy().contains("f1"));
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(held("f0"), findingOf("f0"));
  EXPECT_EQ(held("f2"), findingOf("f2"));
}

TEST_F(FindingState, IsPostedAlone) {
  show({findingOf("f1")});
  decide(findingOf("f1"), "issue");
  ASSERT_EQ(desk.http.exchanges.size(), 1U);
  EXPECT_EQ(desk.http.exchanges[0].line(), "POST api/findings/f1");
  EXPECT_EQ(desk.http.exchanges[0].request.body, R"({"state":"issue"})");
}

TEST_F(FindingState, ChangesTheHeldFindingNotTheCallersCopyOfIt) {
  Finding shown = findingOf("f1");
  shown.title = "As it is held";
  show({shown});
  store().setFindingState(findingOf("f1"), "fine");
  EXPECT_EQ(held().title, "As it is held");
  EXPECT_EQ(held().state, "fine");
}

TEST_F(FindingState, OfAnUnknownFindingIsOnlySent) {
  show({findingOf("f1")});
  const auto before = store().details();
  decide(findingOf("elsewhere"), "issue");
  EXPECT_EQ(store().details(), before);
  EXPECT_EQ(posts("elsewhere"), 1U);
}

TEST_F(FindingState, WithoutATicketOnShowIsOnlySent) {
  show({findingOf("f1")});
  store().selection.set({});
  decide(findingOf("f1"), "issue");
  EXPECT_EQ(held().state, "open");
  EXPECT_EQ(store().focus(), "f1") << "no detail to walk";
  EXPECT_EQ(posts(), 1U);
}

TEST_F(FindingState, WithoutADetailIsOnlySent) {
  show({});
  store().details.set({});
  decide(findingOf("f1"), "issue");
  EXPECT_TRUE(store().details().empty());
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_EQ(posts(), 1U);
}

TEST_F(FindingState, TellsObserversOfDetailsOnce) {
  show({findingOf("f1")});
  desk.time.run();
  int told = 0;
  const auto watching = store().changes.observe(Store::kDetails, [&] { ++told; });
  decide(findingOf("f1"), "issue");
  EXPECT_EQ(told, 1);
}

// One finding after the decided one, and what the walk makes of it.
struct WalkCase {
  const char* name;
  Finding other;
  bool taken;
};
BOOST_DESCRIBE_STRUCT(WalkCase, (), (name, other, taken))

Finding with(void (*change)(Finding&)) {
  Finding finding = findingOf("f2");
  change(finding);
  return finding;
}

class FocusWalk : public FindingTest, public testing::WithParamInterface<WalkCase> {};

TEST_P(FocusWalk, TakesTheNextOpenFindingOfThePageOrNone) {
  show({findingOf("f1"), GetParam().other});
  store().setFindingState(findingOf("f1"), "fine");
  EXPECT_EQ(store().focus(), GetParam().taken ? std::optional{GetParam().other.id} : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    All, FocusWalk,
    testing::Values(WalkCase{"Open", findingOf("f2"), true},
                    WalkCase{"Medium", findingOf("f2", 0, "medium"), true},
                    WalkCase{"Low", findingOf("f2", 0, "low"), false},
                    WalkCase{"OtherPage", findingOf("f2", 1), false},
                    WalkCase{"Issue", with([](Finding& f) { f.state = "issue"; }), false},
                    WalkCase{"Fine", with([](Finding& f) { f.state = "fine"; }), false},
                    WalkCase{"UnknownState", with([](Finding& f) { f.state = "other"; }), false},
                    WalkCase{"WithoutBox", with([](Finding& f) { f.box.reset(); }), false},
                    WalkCase{"Pass", with([](Finding& f) { f.kind = "pass"; }), false},
                    WalkCase{"Expected", with([](Finding& f) { f.kind = "expected"; }), false},
                    WalkCase{"OtherKind", with([](Finding& f) { f.kind = "font"; }), true},
                    WalkCase{"SameIdAgain", with([](Finding& f) { f.id = "f1"; }), false}),
    [](const auto& each) { return each.param.name; });

TEST_F(FindingState, WalksInStoredOrderFromTheStart) {
  show({findingOf("f0"), findingOf("f1"), findingOf("f2")});
  store().setFindingState(findingOf("f1"), "issue");
  EXPECT_EQ(store().focus(), "f0");
}

TEST_F(FindingState, OfTheOnlyOpenFindingOfItsPageClearsTheFocus) {
  show({findingOf("f1"), findingOf("f2", 1), stateOf(findingOf("f3"), "fine")});
  store().setFindingState(findingOf("f1"), "fine");
  EXPECT_FALSE(store().focus());
}

TEST_F(FindingState, OpenNeverMovesTheFocus) {
  show({stateOf(findingOf("f1"), "issue"), findingOf("f2")});
  store().setFindingState(stateOf(findingOf("f1"), "issue"), "open");
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_EQ(held().state, "open");
}

TEST_F(FindingState, OfAFindingOutOfFocusLeavesTheFocusAlone) {
  show({findingOf("f1"), findingOf("f2"), findingOf("f3")}, "f3");
  store().setFindingState(findingOf("f1"), "fine");
  EXPECT_EQ(store().focus(), "f3");
  store().focus.set(std::nullopt);
  store().setFindingState(findingOf("f2"), "fine");
  EXPECT_FALSE(store().focus());
}

struct TextCase {
  const char* state;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(TextCase, (), (state, text))

class DecidedTexts : public FindingTest, public testing::WithParamInterface<TextCase> {};

TEST_P(DecidedTexts, AreToastedWithUndo) {
  show({findingOf("f1")});
  serve({stateOf(findingOf("f1"), GetParam().state)});
  routes.set("POST api/findings/f1", answerOf(200, "{}"));
  decide(findingOf("f1"), GetParam().state);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_EQ(desk.toast()->undoLabel, "Undo");
  EXPECT_TRUE(desk.toast()->undo);
}

INSTANTIATE_TEST_SUITE_P(All, DecidedTexts,
                         testing::Values(TextCase{"issue", "Marked a real issue."},
                                         TextCase{"fine", "Marked fine."},
                                         TextCase{"open", "Reopened."},
                                         TextCase{"anything else", "Reopened."}));

}  // namespace
}  // namespace vellix
