// What a Store shows that no service has filled.
#pragma once

#include "records/sample.hpp"
#include "store/store.hpp"

namespace vellix {

struct Staged {
  std::optional<Sample> sample;  // none: signed out
  std::optional<Moment> lastOK;
  std::set<std::string> selection;
  std::map<std::string, Int> page;
  std::optional<std::string> focus;
  std::optional<DraftNote> draft;
  std::optional<double> zoom;  // none leaves it as it is
  CompareMode mode = CompareMode::side;
  bool showActivity = false;
  bool notesDrawer = false;
  std::string sideTab = "page";
  std::optional<std::string> profile;
  std::optional<Stats> stats;
  std::optional<std::string> problem;
  std::optional<Toast> toast;
};

}  // namespace vellix
