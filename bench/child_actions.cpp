// Whatever a person does, to the frame that shows it: on a board as large as they come, and on the
// demo's.
#include <QGuiApplication>
#include <cstdlib>

#include "Actions.hpp"
#include "BigTicket.hpp"
#include "CrowdedBoard.hpp"
#include "DemoService.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kSamples = 200;  // of each kind
constexpr double kFrame = 1000.0 / 60;
constexpr double kDemoBudget = 6;

// What was asked for behind "--child NAME".
struct Wanted {
  Wanted(int argc, char** argv) : kind(argc > 3 ? std::atoi(argv[3]) : -1) {}
  bool has(int which) const { return kind < 0 || kind == which; }
  int kind;  // negative for all
};

void measure(Actions& actions, Wanted wanted, const std::string& board, double budget) {
  int which = 0;
  for (const auto& kind : actions.kinds()) {
    if (!wanted.has(which++)) continue;
    std::vector<double> costs;
    for (int i = 0; i < kSamples; ++i) {
      const auto cost = kind.once(i);
      if (cost) costs.push_back(*cost);
    }
    tellMost(board + ": " + kind.name, costs, "ms", budget);
    if (costs.size() != kSamples) {
      tellFault(board + ": " + kind.name + " did nothing " +
                std::to_string(kSamples - costs.size()) + " times");
    }
  }
}

// What a page costs that nobody looks at otherwise: all of it, until everything is at rest.
void measureOpening(Actions& actions) {
  const auto opening = [&](int page) {
    actions.goTo(kBarePage);
    const auto way = page > kBarePage ? "Next page" : "Previous page";
    const Cost cost = actions.press(actions.find("IconButton", "help", way));
    if (actions.page() != page) tellFault("a page with findings was not opened");
    return cost.whole;
  };
  const auto [full, few] =
      alternate([&] { return opening(kFullPage); }, [&] { return opening(kFewPage); });
  tell({"opening a page of 1,000 findings, against one of 10 (CPU)", full, few, "ms", 2});
}

}  // namespace

int actionsChild(int argc, char** argv) {
  const Wanted wanted(argc, argv);
  return onCrowdedBoard(argc, argv, [wanted](Actions& actions) {
    measure(actions, wanted, "10,000 tickets", kFrame);
  });
}

int openingChild(int argc, char** argv) { return onCrowdedBoard(argc, argv, measureOpening); }

int demoActionsChild(int argc, char** argv) {
  const Wanted wanted(argc, argv);
  const Settings settings;
  const QGuiApplication application(argc, argv);
  DemoService service;
  const std::string token = service.signIn();
  Settings::name(service.server());
  bool urgent = false;
  std::string ticket;
  Actions actions(token, [&] {
    urgent = !urgent;
    service.post("/api/files/" + ticket + "/due", token,
                 urgent ? R"({"urgent":true})" : R"({"urgent":false})");
  });
  if (token.empty() || !actions.begin()) {
    tellFault("the demo's board was never shown");
    return 1;
  }
  ticket = actions.desk().store().currentFile()->id;
  measure(actions, wanted, "demo's board", kDemoBudget);
  return 0;
}

}  // namespace vellix::bench
