// Rounds of approval and share links.
#include <algorithm>
#include <cmath>

#include "body.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr double kFirstAnswer = 12'000;
constexpr double kNextAnswer = 9'000;

std::unexpected<Refusal> refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
    text += names[i];
  }
  return text;
}

}  // namespace

void State::renewLinks(Ticket& ticket) {
  const std::string key = secret().substr(0, 12);
  links_[key] = ticket.item.id;
  ShareInfo& share = *ticket.item.share;
  share.url = address_ + "/s/" + key;
  share.embed_url = address_ + "/embed/" + key;
  share.at = now_;
}

ShareInfo& State::shareOf(Ticket& ticket, const std::string& by) {
  if (!ticket.item.share) {
    ticket.item.share = ShareInfo{true, "view", std::nullopt, std::nullopt, by, now_};
    renewLinks(ticket);
  }
  return *ticket.item.share;
}

std::optional<State::Linked> State::linkedBy(const std::string& key) const {
  const auto known = links_.find(key);
  if (known == links_.end()) return std::nullopt;
  Linked linked{known->second, true, false};
  const auto ticket = std::ranges::find_if(
      tickets_, [&](const Ticket& entry) { return entry.item.id == linked.ticket; });
  if (ticket == tickets_.end() || !ticket->item.share) return std::nullopt;
  linked.renewed = !ticket->item.share->url->ends_with("/s/" + key);
  linked.enabled = ticket->item.share->enabled;
  return linked;
}

Outcome<ShareAnswer> State::approval(const std::string& id, const Json& body,
                                     const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  const std::string action = textAt(body, "action").value_or("");
  const std::string state = ticket->approval ? ticket->approval->state.value_or("") : "";
  const Int version = ticket->newest().record.n;
  if (action == "withdraw") {
    if (state != "pending") return refuse(400, "This one is not out for approval.");
    ticket->approval.reset();
    record(ticket, "approval", by, "Took the request back");
    return ShareAnswer{shareOf(*ticket, by)};
  }
  if (action == "sent") {
    if (state != "approved") return refuse(400, "Not every approver has said yes.");
    ticket->approval->state = "sent";
    ticket->approval->by = by;
    ticket->approval->at = now_;
    record(ticket, "sent", by, "Marked sent to " + ticket->item.supplier.value_or("the supplier"));
    return ShareAnswer{shareOf(*ticket, by)};
  }
  if (action != "request") return refuse(400, "There is no such action.");
  const auto asked = textsAt(body, "approvers");
  if (asked.empty()) return refuse(400, "Pick at least one approver.");
  if (state == "pending") return refuse(400, "This one is out for approval already.");

  Approval round;
  round.state = "pending";
  round.version = version;
  round.asked = asked;
  round.requested_by = by;
  round.requested_at = now_;
  round.by = by;
  round.at = now_;
  if (const auto note = textAt(body, "note"); note && !note->empty()) round.note = *note;
  ticket->approval = round;
  ShareInfo& link = shareOf(*ticket, by);
  link.enabled = true;
  std::vector<std::string> names;
  names.reserve(asked.size());
  for (const std::string& email : asked) names.push_back(nameOf(email));
  record(ticket, "approval", by,
         "Sent v" + std::to_string(version) + " to " + joined(names) + " for approval");
  awaitAnswers(*ticket);
  return ShareAnswer{link};
}

// What was asked for was asked of another version.
void State::outdateApproval(Ticket& ticket, std::optional<std::string> by) {
  if (!ticket.approval) return;
  ticket.approval->state = "revised";
  ticket.approval->by = std::move(by);
  ticket.approval->at = now_;
}

// Of everyone who has not answered yet.
void State::awaitAnswers(const Ticket& ticket) {
  double wait = kFirstAnswer;
  for (const std::string& approver : ticket.approval->asked) {
    if (ticket.approval->answers.contains(approver)) continue;
    later(wait, [this, id = ticket.item.id, requested = *ticket.approval->requested_at, approver] {
      answerRound(id, requested, approver);
    });
    wait += kNextAnswer;
  }
}

void State::answer(Ticket& ticket, const std::string& approver, const std::string& kind,
                   std::optional<std::string> note) {
  Approval& round = *ticket.approval;
  const std::string shown = "v" + std::to_string(round.version.value_or(1));
  round.answers[approver] = {kind, std::move(note), now_};
  if (kind == "changes") {
    round.state = "changes";
    round.by = approver;
    round.at = now_;
    record(&ticket, "changes", approver, "Asked for changes on " + shown);
    return;
  }
  record(&ticket, "approved", approver, "Approved " + shown);
  const auto saidYes = [&](const std::string& email) {
    const auto answer = round.answers.find(email);
    return answer != round.answers.end() && answer->second.kind == "approved";
  };
  if (std::ranges::all_of(round.asked, saidYes)) {
    round.state = "approved";
    round.by = approver;
    round.at = now_;
    record(&ticket, "approved_all", std::nullopt, "Every approver said yes");
  }
}

// The last one asked wants changes as long as a real issue stands on the version; the rest agree.
void State::answerRound(const std::string& id, double requestedAt, const std::string& approver) {
  Ticket* ticket = find(id);
  if (approversWait_ || ticket == nullptr || !ticket->approval ||
      ticket->approval->state != "pending" || ticket->approval->requested_at != requestedAt ||
      ticket->approval->answers.contains(approver)) {
    return;
  }
  const auto& findings = ticket->newest().findings;
  const auto issue = std::ranges::find(findings, "issue", &Finding::state);
  if (issue != findings.end() && approver == ticket->approval->asked.back()) {
    answer(*ticket, approver, "changes", "Please see to this first: " + issue->title + ".");
  } else {
    answer(*ticket, approver, "approved", std::nullopt);
  }
}

Done State::answerNow(const std::string& id, const std::string& approver, const std::string& kind,
                      const std::string& note) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  if (kind != "approved" && kind != "changes") return refuse(400, "There is no such answer.");
  if (!ticket->approval || ticket->approval->state != "pending") {
    return refuse(400, "This one is not out for approval.");
  }
  const auto asked = ticket->approval->asked;
  if (!approver.empty() && std::ranges::find(asked, approver) == asked.end()) {
    return refuse(400, "Nobody of that address was asked.");
  }
  for (const std::string& email : asked) {
    if (ticket->approval->state != "pending" || ticket->approval->answers.contains(email)) continue;
    if (!approver.empty() && approver != email) continue;
    answer(*ticket, email, kind, note.empty() ? std::nullopt : std::optional(note));
  }
  return {};
}

Outcome<ShareAnswer> State::share(const std::string& id, const Json& body, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  const auto enabled = flagAt(body, "enabled");
  const auto access = textAt(body, "access");
  const bool reset = flagAt(body, "reset").value_or(false);
  if (!enabled && !access && !reset) return refuse(400, "Nothing to change was sent.");
  if (access && *access != "view" && *access != "comment" && *access != "edit") {
    return refuse(400, "There is no such access.");
  }
  const bool had = ticket->item.share.has_value();
  ShareInfo& link = shareOf(*ticket, by);
  if (!had && !enabled) link.enabled = false;
  if (enabled) link.enabled = *enabled;
  if (access) link.access = *access;
  if (reset) renewLinks(*ticket);
  link.by = by;
  record(ticket, "share", by,
         reset     ? "Made a new link"
         : enabled ? (*enabled ? "Turned the link on" : "Turned the link off")
                   : "Changed what the link allows to " + *access);
  return ShareAnswer{link};
}

Done State::setApprovers(const Json& body, const std::string& by) {
  const Json* found = body.find("approvers");
  const auto* list = found == nullptr ? nullptr : std::get_if<Json::List>(&found->value);
  if (list == nullptr) return refuse(400, "No list of approvers was sent.");
  std::vector<Guest> approvers;
  for (const Json& entry : *list) {
    const auto email = textAt(entry, "email");
    if (!email || email->find('@') == std::string::npos) {
      return refuse(400, "An approver needs an address.");
    }
    auto name = textAt(entry, "name");
    if (name && name->empty()) name.reset();
    approvers.push_back({*email, name});
  }
  approvers_ = std::move(approvers);
  record(nullptr, "approvers", by, "changed the key approvers");
  return {};
}

}  // namespace vellix::demo
