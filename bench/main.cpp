// Measures the budgets.
//
//   vellix_bench
//   [opening|paste|decode|list|poll|actions|demo|scroll|canvas|pages|visits|launch|rest|soak]...
#include <unistd.h>

#include <QCoreApplication>
#include <cstdlib>
#include <string_view>

#include "children.hpp"
#include "parent.hpp"

namespace {

constexpr unsigned kLongestChild = 170;  // seconds; it must not outlive the run that started it

int runChild(int argc, char* argv[]) {
  using namespace vellix::bench;
  alarm(kLongestChild);
  const std::string_view name = argv[2];
  if (name == "actions") return actionsChild(argc, argv);
  if (name == "demo") return demoActionsChild(argc, argv);
  if (name == "opening") return openingChild(argc, argv);
  if (name == "paste") return pasteChild(argc, argv);
  if (name == "scroll") return scrollChild(argc, argv);
  if (name == "decode") return decodeChild();
  if (name == "list") return listChild(argc, argv);
  if (name == "poll" && argc == 5) return pollChild(argc, argv);
  if (name == "canvas") return canvasChild(argc, argv);
  if (name == "pages") return pagesChild(argc, argv);
  if (name == "soak") return soakChild(argc, argv);
  if (name == "visits") return visitsChild(argc, argv);
  if (name == "launch" && (argc == 5 || argc == 6)) {
    return launchChild(argc, argv, std::atof(argv[3]), std::atof(argv[4]), argv[5]);
  }
  return 2;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc >= 3 && std::string_view(argv[1]) == "--child") return runChild(argc, argv);
  const QCoreApplication application{argc, argv};
  return vellix::bench::run(application.arguments().mid(1));
}
