// How far a sync of somebody's own proofs has come.
#pragma once

#include <deque>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "version_check.hpp"

namespace vellix::demo {

// One version after the other is checked beside.
struct OwnRun {
  std::deque<std::pair<std::string, Int>> waiting;
  std::size_t all = 0;
  std::unique_ptr<VersionCheck> check;  // of this ticket's version
  std::string ticket;
  Int version = 0;
  std::vector<CheckReference> references;
  std::set<std::string> told_ids;
  std::size_t pages = 0;  // checked in all
  std::vector<std::string> done;
  std::vector<std::string> told;      // what to look at
  std::vector<std::string> troubles;  // with the references of the version
};

}  // namespace vellix::demo
