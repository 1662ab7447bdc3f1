// Findings, notes, and a ticket's own fields.
#include <algorithm>
#include <cmath>

#include "body.hpp"
#include "check/compared.hpp"
#include "clock.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

const Refusal kNoTicket{404, "There is no such ticket."};

Done refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

}  // namespace

Done State::setFinding(const std::string& id, const std::string& state, const std::string& by) {
  if (state != "open" && state != "issue" && state != "fine") {
    return refuse(400, "A finding is open, an issue or fine.");
  }
  const auto [ticket, finding] = findFinding(id);
  if (finding == nullptr) return refuse(404, "There is no such finding.");
  if (!isReal(*finding)) return refuse(400, "That check passed. There is nothing to decide.");
  finding->state = state;
  finding->state_by = by;
  finding->state_at = now_;
  record(ticket, "finding", by,
         state == "open"
             ? "Reopened “" + finding->title + "”"
             : "Marked “" + finding->title + "” " + (state == "issue" ? "a real issue" : "fine"),
         finding->page);
  return {};
}

Done State::findMore(const std::string& fileId, Int page, Int count) {
  Ticket* ticket = find(fileId);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  TicketVersion& version = ticket->newest();
  if (page < 0 || page >= static_cast<Int>(version.pages.size())) {
    return refuse(400, "There is no such page.");
  }
  if (count < 1 || count > 100) return refuse(400, "Between 1 and 100 more can be found.");
  for (Int i = 0; i < count; ++i) {
    Finding finding;
    finding.id = nextId("more-");
    finding.file_id = fileId;
    finding.page = page;
    finding.against = "submitted";
    finding.kind = "words";
    finding.severity = "high";
    finding.title = "A word has changed in line " + std::to_string(i + 1);
    const double top = 0.05 + 0.9 * static_cast<double>(i) / static_cast<double>(count);
    finding.before = "there";
    finding.after = "their";
    finding.box = {0.2, top, 0.15, 0.02};
    finding.ref_box = finding.box;
    finding.state = "open";
    version.findings.push_back(std::move(finding));
  }
  touch(ticket);
  return {};
}

Done State::addNote(const Json& body, const std::string& by) {
  Ticket* ticket = find(textAt(body, "file_id").value_or(""));
  if (ticket == nullptr) return std::unexpected(kNoTicket);
  const auto text = textAt(body, "text");
  if (!text || text->find_first_not_of(" \t\r\n") == std::string::npos) {
    return refuse(400, "A note needs some text.");
  }
  Note note;
  note.id = nextId("note-");
  note.file_id = ticket->item.id;
  note.text = *text;
  note.by = by;
  note.at = now_;
  if (const auto page = numberAt(body, "page")) note.page = static_cast<Int>(*page);
  note.x = numberAt(body, "x");
  note.y = numberAt(body, "y");
  note.w = numberAt(body, "w");
  note.h = numberAt(body, "h");
  note.side = textAt(body, "side");
  note.finding_id = textAt(body, "finding_id");
  if (body.find("tags") != nullptr) note.tags = textsAt(body, "tags");
  const Int newest = ticket->newest().record.n;
  const auto version =
      static_cast<Int>(numberAt(body, "version").value_or(static_cast<double>(newest)));
  if (version < 1 || version > newest) return refuse(400, "There is no such version.");
  ticket->notes.push_back({note, version});
  record(ticket, "comment", by, note.text, note.page);
  for (const std::string& tag : note.tags.value_or(std::vector<std::string>{})) {
    const auto user = std::ranges::find(users_, tag, &Person::email);
    const std::string name = user == users_.end() ? nameOf(tag) : user->name;
    record(ticket, "tag", by, "Tagged " + name + ": " + note.text, note.page);
  }
  return {};
}

Done State::changeNote(const std::string& id, const Json& body, const std::string& by) {
  for (Ticket& ticket : tickets_) {
    const auto stored = std::ranges::find_if(
        ticket.notes, [&](const StoredNote& entry) { return entry.note.id == id; });
    if (stored == ticket.notes.end()) continue;
    Note& note = stored->note;
    if (flagAt(body, "deleted").value_or(false)) {
      const auto page = note.page;
      ticket.notes.erase(stored);
      record(&ticket, "note_deleted", by, "deleted a note", page);
      return {};
    }
    const auto text = textAt(body, "text");
    const auto resolved = flagAt(body, "resolved");
    if (!text && !resolved) return refuse(400, "Nothing to change was sent.");
    if (text) {
      note.text = *text;
      note.edited = now_;
    }
    if (resolved) {
      note.resolved = *resolved ? 1 : 0;
      note.resolved_by = *resolved ? std::optional(by) : std::nullopt;
    }
    record(&ticket, resolved ? "resolve" : "note_edited", by,
           resolved ? (*resolved ? "Resolved a note" : "Reopened a note") : "edited a note",
           note.page);
    return {};
  }
  return refuse(404, "There is no such note.");
}

Done State::setStatus(const std::string& id, const std::string& status, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return std::unexpected(kNoTicket);
  if (status != "new" && status != "in_review" && status != "reviewed") {
    return refuse(400, "There is no such status.");
  }
  ticket->item.status = status;
  ticket->item.status_by = by;
  ticket->item.status_at = now_;
  record(ticket, "status", by,
         status == "reviewed"    ? "Marked reviewed"
         : status == "in_review" ? "Moved to In review"
                                 : "Moved to New");
  return {};
}

Done State::assign(const std::string& id, const std::string& email, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return std::unexpected(kNoTicket);
  if (std::ranges::find(users_, email, &Person::email) == users_.end()) {
    return refuse(400, "Nobody here has that address.");
  }
  ticket->item.assignee = email;
  ticket->item.assigned_by = by;
  record(ticket, "assign", by, "Assigned to " + nameOf(email));
  return {};
}

double State::dueOf(const FileItem& item) const {
  if (item.urgent.value_or(false)) return atLocal(now_, 0, 23, 59);
  const double latest = item.received.value_or(now_) + 48 * kHour;
  return item.deadline ? std::min(latest, *item.deadline) : latest;
}

Done State::setDue(const std::string& id, const Json& body, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return std::unexpected(kNoTicket);
  FileItem& item = ticket->item;
  if (flagAt(body, "reset").value_or(false)) {
    item.urgent.reset();
    item.due_by.reset();
    item.due = dueOf(item);
    record(ticket, "due", by, "Put it back to 48 hours");
  } else if (const auto urgent = flagAt(body, "urgent")) {
    item.urgent = urgent;
    item.due_by = by;
    item.due = dueOf(item);
    record(ticket, "due", by, *urgent ? "Marked it urgent" : "Took the urgent mark off");
  } else if (const auto due = numberAt(body, "due")) {
    if (*due > item.received.value_or(now_) + 48 * kHour + kMinute) {
      return refuse(400, "A review is due within 48 hours of the file coming in.");
    }
    item.due = std::round(*due);
    item.due_by = by;
    record(ticket, "due", by, "Set the due date");
  } else {
    return refuse(400, "No due date was sent.");
  }
  return {};
}

Done State::setTrack(const std::string& id, const std::string& track, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return std::unexpected(kNoTicket);
  if (track != "reprint" && track != "new_title") return refuse(400, "There is no such track.");
  ticket->item.track = track;
  record(ticket, "track", by, track == "reprint" ? "Moved to Reprints" : "Moved to New titles");
  return {};
}

}  // namespace vellix::demo
