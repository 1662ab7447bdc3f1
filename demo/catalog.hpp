// The tickets that the demo opens with, and the one that a sync brings.
#pragma once

#include "pictures.hpp"
#include "ticket.hpp"

namespace vellix::demo {

inline constexpr const char* kRenny = "renny@tessarine.example";
inline constexpr const char* kJorvas = "jorvas@tessarine.example";
inline constexpr const char* kMira = "mira@tessarine.example";
inline constexpr const char* kTomas = "tomas@tessarine.example";

struct Plant {
  int page = 0;
  Defect defect = Defect::changedWord;
  int line = 0;
  std::string severity = "high";
  std::string state = "open";
};

struct TicketPlan {
  std::string id;
  std::string book;
  std::string component;
  std::string po;
  std::string supplier;
  std::string track = "new_title";
  std::string status = "new";
  std::string assignee;
  double receivedHoursAgo = 20;
  std::optional<double> due;  // none: 48 hours after it came in
  bool urgent = false;
  int pages = 1;
  int firstNumber = 0;  // of text pages; 0 for covers
  int secondOpening = -1;
  std::vector<int> plates;
  std::vector<Plant> plants;
  std::vector<std::pair<int, int>> edits;  // our own edits since the third reference: page, line
  int missingPage = -1;                    // left out of the proof
  bool third = true;
  std::vector<int> thirdMissing;
  bool sentFound = true;
  std::string summary;
  bool waiting = false;
  int scanned = -1;  // a page without live text
};

// Makes the ticket's first version and enters its pictures.
Ticket ticketOf(const TicketPlan& plan, double now, Pictures& pictures);

// Makes a further version out of the newest: every page repaired except those with a defect of a
// kind to keep, and the version before as its reference.
void addVersion(Ticket& ticket, Version record, const std::vector<std::string>& keepKinds,
                Pictures& pictures);
// What the check of the newest version found, as records.
std::vector<Finding> findingsAgainstPrevious(const Ticket& ticket);

// Gives the findings of a version their ids and their order.
void number(std::vector<Finding>& findings, const std::string& ticketId, Int version);
// "folder/p001.jpg" for the first page.
std::string pageKey(const std::string& folder, int index);

std::vector<TicketPlan> ticketPlans(double now);

}  // namespace vellix::demo
