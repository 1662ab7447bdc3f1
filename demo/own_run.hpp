// How far a sync of somebody's own proofs has come.
#pragma once

#include <deque>
#include <future>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "own_ticket.hpp"
#include "version_check.hpp"

namespace vellix::demo {

// The files are looked at beside, and then one version after the other is checked beside.
struct OwnRun {
  std::future<std::vector<Came>> looking;  // not valid any more when it has ended
  std::deque<std::pair<std::string, Int>> waiting;
  std::size_t all = 0;
  std::unique_ptr<VersionCheck> check;  // of this ticket's version
  std::string ticket;
  Int version = 0;
  std::vector<CheckReference> references;   // those that can be compared with
  std::map<std::string, PdfReading> facts;  // theirs, by role
  std::set<std::string> told_ids;
  std::size_t pages = 0;  // checked in all
  std::vector<std::string> done;
  std::vector<std::string> told;      // what to look at
  std::vector<std::string> troubles;  // with the references of the version
};

}  // namespace vellix::demo
