// What the reviewers did on tickets that have left the board: what their figures start from.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix::demo {

struct PastReview {
  double received = 0;
  double at = 0;
  double due = 0;
};

struct Past {
  std::vector<PastReview> reviews;
  std::map<std::string, Int> issues;  // by kind
  Int fine = 0;
  Int notes = 0;
};

// `opened` is when the service started; nobody else has a past.
Past pastOf(const std::string& email, double opened);

}  // namespace vellix::demo
