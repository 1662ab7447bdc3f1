// How fresh the board is said to be.
#include "board/live_dot.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kRefresh = "Refresh (Ctrl+R)";
constexpr const char* kProblem = "The line is down.";

const LiveDotView kChecking{.text = "Checking", .tone = "blue", .spinning = true, .help = kRefresh};
const LiveDotView kConnecting{
    .text = "Connecting", .tone = "blue", .spinning = true, .help = kRefresh};
const LiveDotView kOffline{
    .text = "Offline", .icon = "wifi.slash", .tone = "gray", .help = kProblem};
const LiveDotView kUpToDate{
    .text = "Up to date", .icon = "checkmark.circle", .tone = "green", .help = kRefresh};

LiveDotView updated(const char* text) {
  return {.text = text, .icon = "clock", .tone = "gray", .help = kRefresh};
}
LiveDotView checkingIn(const char* problem) {
  LiveDotView view = kChecking;
  view.help = problem;
  return view;
}

struct State {
  const char* name;
  bool refreshing;
  bool problem;
  std::optional<double> age;  // seconds since the last good poll
  LiveDotView view;
};
BOOST_DESCRIBE_STRUCT(State, (), (name, refreshing, problem, age, view))

class LiveDots : public StoreTest, public testing::WithParamInterface<State> {};

TEST_P(LiveDots, TakeTheFirstStateThatHolds) {
  const auto& each = GetParam();
  const Moment now = desk.time.now();
  store().refreshing.set(each.refreshing);
  if (each.problem) store().problem.set(kProblem);
  if (each.age) store().lastOK.set(now - Milliseconds{*each.age * 1'000});
  EXPECT_EQ(liveDot(store(), now, desk.calendar), each.view);
}

INSTANTIATE_TEST_SUITE_P(
    All, LiveDots,
    testing::Values(State{"NeverAnswered", false, false, std::nullopt, kConnecting},
                    State{"NeverAnsweredAndOffline", false, true, std::nullopt, kOffline},
                    State{"JustNow", false, false, 0.0, kUpToDate},
                    State{"JustWithinNinetySeconds", false, false, 89.999, kUpToDate},
                    State{"NinetySeconds", false, false, 90.0, updated("Updated 1 min ago")},
                    State{"TwoHours", false, false, 7'200.0, updated("Updated 2 hr ago")},
                    State{"AClockSetBack", false, false, -300.0, kUpToDate},
                    State{"OfflineAfterAGoodPoll", false, true, 3.0, kOffline},
                    State{"OfflineForLong", false, true, 300.0, kOffline},
                    State{"Checking", true, false, 3.0, kChecking},
                    State{"CheckingForTheFirstTime", true, false, std::nullopt, kChecking},
                    State{"CheckingWhileOffline", true, true, 3.0, checkingIn(kProblem)}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
