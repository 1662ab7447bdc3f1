// The program in front of a board as large as they come: ten thousand tickets, of which the one on
// show has 400 pages, 300 notes and a page with 1,000 findings.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <string>

#include "Actions.hpp"

namespace vellix::bench {

// The program's settings, for as long as this lives, with another service named there. Comes before
// the application.
class Settings {
 public:
  Settings() { qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8()); }
  static void name(const std::string& server);

 private:
  QTemporaryDir folder_;
};

// Does the work once all is on show. The process's exit code.
int onCrowdedBoard(int argc, char** argv, const std::function<void(Actions& actions)>& work);

}  // namespace vellix::bench
