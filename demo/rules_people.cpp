// The reviewers: their photos, and what the colleague does.
#include <algorithm>

#include "body.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr double kColleague = 50'000;

Done refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

}  // namespace

Done State::setPhoto(std::string bytes, const std::string& by) {
  if (!bytes.starts_with("\xFF\xD8")) return refuse(400, "A photo is a JPEG.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->photo = nextId("photos/") + ".jpg";
  pictures_.put(*user->photo, std::move(bytes));
  record(nullptr, "photo", by, "Changed their photo");
  return {};
}

Done State::colleagueActs(const std::string& fileId, const std::string& text,
                          const std::string& by) {
  Ticket* ticket = find(fileId);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->last_seen = now_;
  Note note;
  note.id = nextId("note-");
  note.file_id = fileId;
  note.page = 0;
  note.text = text;
  note.by = by;
  note.at = now_;
  ticket->notes.push_back({note, ticket->newest().record.n});
  record(ticket, "comment", by, text, 0);
  return {};
}

// Decides an open finding of the reprints now and then, or leaves a word about one.
void State::scheduleColleague() {
  later(kColleague, [this] {
    std::vector<std::pair<std::string, std::string>> open;  // ticket, finding
    for (const Ticket& ticket : tickets_) {
      if (ticket.waiting || ticket.item.assignee != kJorvas) continue;
      for (const Finding& finding : ticket.newest().findings) {
        if (finding.state == "open" && isReal(finding))
          open.emplace_back(ticket.item.id, finding.id);
      }
    }
    if (!open.empty()) {
      const auto& [ticket, finding] = open[colleague_() % open.size()];
      if (colleague_() % 2 == 0) {
        (void)colleagueActs(ticket, "I’ll ask the supplier about this one.", kJorvas);
      } else {
        (void)setFinding(finding, "issue", kJorvas);
      }
    }
    scheduleColleague();
  });
}

}  // namespace vellix::demo
