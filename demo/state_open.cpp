// How the board stands when the service starts.
#include <algorithm>
#include <cmath>

#include "clock.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

struct Past {
  double hoursAgo;
  const char* ticket;
  const char* kind;
  const char* by;
  const char* text;
  int page = -1;
};

const std::vector<Past>& pasts() {
  static const std::vector<Past> all = {
      {95.5, "lanterns-text", "checked", "", "Checked 7 pages"},
      {90, "lanterns-text", "finding", kRenny, "Marked “Full stop for a comma” fine", 3},
      {88, "lanterns-text", "status", kRenny, "Marked reviewed"},
      {87, "lanterns-text", "approval", kRenny, "Sent v1 to Mira and Tomas for approval"},
      {80, "lanterns-text", "approved", kMira, "Approved v1"},
      {78, "lanterns-text", "approved_all", "", "Every approver said yes"},
      {77, "lanterns-text", "sent", kRenny, "Marked sent to Orient Press"},
      {119, "carto-cover", "checked", "", "Checked 2 pages"},
      {110, "carto-cover", "status", kJorvas, "Marked reviewed"},
      {69.5, "salt-jacket", "checked", "", "Checked 2 pages"},
      {60, "salt-jacket", "finding", kRenny, "Marked “A line lies under the art” fine", 0},
      {58, "salt-jacket", "status", kRenny, "Marked reviewed"},
      {57, "salt-jacket", "approval", kRenny, "Sent v1 to Mira and Tomas for approval"},
      {50, "salt-jacket", "approved", kTomas, "Approved v1"},
      {31, "salt-jacket", "approved", kMira, "Approved v1"},
      {31, "salt-jacket", "approved_all", "", "Every approver said yes"},
      {40.8, "rain-text", "checked", "", "Checked 8 pages"},
      {38, "rain-text", "finding", kJorvas, "Marked “One word changed” a real issue", 1},
      {37.9, "rain-text", "finding", kJorvas, "Marked “A passage is in another font” a real issue",
       3},
      {37, "rain-text", "status", kJorvas, "Moved to In review"},
      {36, "rain-text", "version", kJorvas, "Uploaded v2"},
      {35.9, "rain-text", "checked", "", "Checked v2 against v1"},
      {26, "rain-text", "approval", kJorvas, "Sent v2 to Mira and Tomas for approval"},
      {5, "rain-text", "approved", kMira, "Approved v2"},
      {29.8, "letter-cover", "checked", "", "Checked 2 pages"},
      {27, "letter-cover", "finding", kRenny, "Marked “The art sits elsewhere” a real issue", 0},
      {26.9, "letter-cover", "status", kRenny, "Moved to In review"},
      {24, "letter-cover", "approval", kRenny, "Sent v1 to Mira and Tomas for approval"},
      {20, "letter-cover", "approved", kTomas, "Approved v1"},
      {6, "letter-cover", "changes", kMira, "Asked for changes on v1"},
      {27.8, "rain-cover", "checked", "", "Checked 2 pages"},
      {23, "rain-cover", "status", kJorvas, "Moved to In review"},
      {22, "rain-cover", "changes", kTomas, "Asked for changes on v1"},
      {3, "rain-cover", "version", kJorvas, "Uploaded v2"},
      {2.9, "rain-cover", "checked", "", "Checked v2 against v1"},
      {49.8, "salt-text", "checked", "", "Checked 12 pages"},
      {8.8, "lanterns-cover", "due", kJorvas, "Marked it urgent"},
      {8.7, "lanterns-cover", "assign", kJorvas, "Assigned to Renny"},
      {1.2, "salt-text", "finding", kRenny, "Marked “A line ends early” a real issue", 10},
      {0.2, "salt-text", "comment", kJorvas, "Is this the old file? The folio moved as well.", 2},
  };
  return all;
}

Approval round(std::string state, Int version, const char* by, double requestedAt) {
  Approval approval;
  approval.state = std::move(state);
  approval.version = version;
  approval.asked = {kMira, kTomas};
  approval.requested_by = by;
  approval.requested_at = requestedAt;
  return approval;
}

}  // namespace

void State::openPeople(double now) {
  users_ = {{kRenny, "Renny Vale", std::nullopt, "#7442e8", "Europe/Amsterdam", now - 3 * kHour},
            {kJorvas, "Jorvas Lind", std::nullopt, "#1a84f0", "Europe/Oslo", now - 2 * kMinute}};
  approvers_ = {{kMira, "Mira Sol"}, {kTomas, "Tomas Reed"}};
  guests_ = {{"agnes@halden.example", "Agnes Holt"}, {"li@orient-press.example", std::nullopt}};
}

void State::open(double now) {
  for (const TicketPlan& plan : ticketPlans(now))
    tickets_.push_back(ticketOf(plan, now, pictures_));

  const auto revise = [&](const char* id, double hoursAgo, const char* note,
                          const std::vector<std::string>& keep, const char* summary) {
    Version record;
    record.n = 2;
    record.kind = "revision";
    record.filename = find(id)->item.title.value_or("") + " v2.pdf";
    record.note = note;
    record.by = kJorvas;
    record.at = std::round(now - hoursAgo * kHour);
    record.size = 3'100'000;
    record.summary = summary;
    record.status = "done";
    Ticket& ticket = *find(id);
    addVersion(ticket, record, keep, pictures_);
    ticket.newest().findings = findingsAgainstPrevious(ticket);
  };
  revise("rain-text", 36, "Fixed the word on p6 and embedded the text font.", {"breaks"},
         "Three repairs came through. Nothing else moved.");
  revise("rain-cover", 3, "The medal is back in its own color.", {"words"},
         "The medal is repaired. One word in the blurb still differs from our file.");

  std::vector<Past> story = pasts();
  std::vector<std::string> lines;  // keeps the file names alive
  for (const Ticket& ticket : tickets_) {
    if (ticket.waiting) continue;
    const double ago = (now - ticket.item.received.value_or(now)) / kHour;
    lines.push_back(ticket.item.heading() + " came in from " + *ticket.item.supplier);
    story.push_back({ago, ticket.item.id.c_str(), "new_file", "", nullptr});
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    story[story.size() - lines.size() + i].text = lines[i].c_str();
  }
  std::ranges::stable_sort(story, std::ranges::greater{}, &Past::hoursAgo);
  for (const Past& past : story) {
    now_ = std::round(now - past.hoursAgo * kHour);
    Ticket* ticket = find(past.ticket);
    const std::string by = past.by;
    record(ticket, past.kind, by.empty() ? std::nullopt : std::optional(by), past.text,
           past.page < 0 ? std::nullopt : std::optional<Int>(past.page));
    if (std::string(past.kind) == "status") {
      ticket->item.status_by = by;
      ticket->item.status_at = now_;
    }
  }
  now_ = now;
  find("lanterns-cover")->item.due_by = kJorvas;
  find("carto-jacket")->item.due_by = kRenny;
  find("carto-jacket")->item.deadline = atLocal(now, 1, 9, 30);
  find("carto-jacket")->item.share =
      ShareInfo{true, "comment", std::nullopt, std::nullopt, kRenny, now - 20 * kHour};
  renewLinks(*find("carto-jacket"));
}

void State::openRounds() {
  const auto ago = [&](double hours) { return std::round(now_ - hours * kHour); };
  const auto answered = [&](const char* id, Approval approval) {
    find(id)->approval = std::move(approval);
    shareOf(*find(id), kRenny);
  };
  Approval changes = round("changes", 1, kRenny, ago(24));
  changes.note = "Mind the seal, please.";
  changes.answers[kTomas] = {"approved", std::nullopt, ago(20)};
  changes.answers[kMira] = {"changes", "The envelope is too far to the right. Please centre it.",
                            ago(6)};
  changes.by = kMira;
  changes.at = ago(6);
  answered("letter-cover", changes);

  Approval pending = round("pending", 2, kJorvas, ago(26));
  pending.note = "Both fixes are in.";
  pending.answers[kMira] = {"approved", std::nullopt, ago(5)};
  pending.by = kJorvas;
  pending.at = ago(26);
  answered("rain-text", pending);

  Approval revised = round("revised", 1, kJorvas, ago(25));
  revised.answers[kTomas] = {"changes", "That pink is not ours.", ago(22)};
  revised.by = kJorvas;
  revised.at = ago(3);
  answered("rain-cover", revised);

  for (const auto& [id, state, hours] :
       {std::tuple{"salt-jacket", "approved", 57.0}, std::tuple{"lanterns-text", "sent", 87.0}}) {
    Approval approval = round(state, 1, kRenny, ago(hours));
    approval.answers[kMira] = {"approved", std::nullopt, ago(hours - 8)};
    approval.answers[kTomas] = {"approved", "Lovely.", ago(hours - 7)};
    approval.by = kRenny;
    approval.at = ago(hours - 9);
    answered(id, approval);
  }
}

}  // namespace vellix::demo
