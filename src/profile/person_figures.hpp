// A person's reviewing in six figures.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

struct FigureTileView {
  std::string title;  // identity among the tiles
  std::string value;
  std::string note;
  std::string spoken;  // what a screen reader says of it
  bool operator==(const FigureTileView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FigureTileView, (), (title, value, note, spoken))

// Days to one decimal place. A dash for none, and for what is no span: no number, one without end,
// or one that runs backwards. What is longer than any span is held.
std::string daysText(const std::optional<double>& hours);

// Always the same six, in the same order. A count below zero is none; the rate is told as it came.
std::vector<FigureTileView> personFigures(const PersonStats& stats);

}  // namespace vellix
