// The real issues that a person has marked, by the kind of finding, as bars.
#pragma once

#include <boost/describe.hpp>
#include <map>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

struct IssueBarView {
  std::string kind;  // identity among the rows: kinds may share a word
  std::string word;
  double fraction = 0;  // of the width
  std::string count;
  std::string spoken;  // what a screen reader says of it
  bool operator==(const IssueBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(IssueBarView, (), (kind, word, fraction, count, spoken))

struct IssueBarsView {
  std::vector<IssueBarView> rows;
  std::string none;  // said in place of rows
  bool operator==(const IssueBarsView&) const = default;
};
BOOST_DESCRIBE_STRUCT(IssueBarsView, (), (rows, none))

// The most first, those of one count by their words, those of one word by their kinds. A count
// below zero is none.
IssueBarsView issueBars(const std::map<std::string, Int>& byKind);

}  // namespace vellix
