// Targets that a person's figures reach. Nothing is stored: what falls back is earned no more.
#pragma once

#include <boost/describe.hpp>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

struct MilestoneView {
  std::string id;  // and its title
  std::string icon;
  bool earned = false;
  std::string progress;  // "Earned", or how far it is
  double fraction = 0;   // of its bar; 1 when it is earned, and has none
  std::string spoken;    // what a screen reader says of it
  bool operator==(const MilestoneView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MilestoneView, (), (id, icon, earned, progress, fraction, spoken))

struct MilestonesView {
  std::string title;
  std::vector<MilestoneView> rows;  // in a fixed order
  bool operator==(const MilestonesView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MilestonesView, (), (title, rows))

// A count below zero is none, and so is one of a kind that the figures do not name.
MilestonesView milestones(const PersonStats& stats);

}  // namespace vellix
