// The tickets that a person has still to review.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "board/due_dates.hpp"
#include "pieces/vocabulary.hpp"
#include "store/store.hpp"

namespace vellix {

struct OpenTicketView {
  std::string id;
  std::string heading;
  std::string subline;
  std::string thumb;               // blob key; empty when there is none
  std::optional<DueChipView> due;  // these two as the list of tickets has them
  std::optional<PillView> approval;
  std::string spoken;  // what a screen reader calls it
  bool operator==(const OpenTicketView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OpenTicketView, (), (id, heading, subline, thumb, due, approval, spoken))

struct OpenListView {
  std::string title;
  std::vector<OpenTicketView> rows;
  std::string none;  // said in place of rows
  bool operator==(const OpenListView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OpenListView, (), (title, rows, none))

// In the board's order; none without a board.
OpenListView openList(const Store& store, const std::string& email, Moment now,
                      const Calendar& calendar);

// Selects the ticket alone. False, and nothing is done, when the board has no such ticket.
bool selectFromProfile(Store& store, const std::string& ticket);

}  // namespace vellix
