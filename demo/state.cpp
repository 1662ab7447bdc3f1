#include "state.hpp"

#include <algorithm>
#include <cmath>

#include "check/compared.hpp"
#include "clock.hpp"

namespace vellix::demo {

State::State(Pictures& pictures, std::string address, double now, double pace, bool colleague,
             bool books)
    : pictures_(pictures),
      address_(std::move(address)),
      books_(books),
      opened_(now),
      now_(now),
      pace_(pace) {
  openPeople(now);
  if (!books) return;
  open(now);
  openRounds();
  openNotes();
  openJobs();
  if (colleague) scheduleColleague();
}

void State::advance(double now) {
  while (true) {
    const auto next = std::ranges::min_element(happenings_, {}, &Happening::at);
    if (next == happenings_.end() || next->at > now) break;
    const Happening happening = std::move(*next);
    happenings_.erase(next);
    now_ = std::max(now_, happening.at);
    happening.what();
  }
  now_ = std::max(now_, now);
  goOnWithChecks();
  goOnWithReport();
  goOnWithOwn();
}

void State::setWaits(std::optional<bool> approvers, std::optional<bool> checks) {
  approversWait_ = approvers.value_or(approversWait_);
  checksWait_ = checks.value_or(checksWait_);
}

void State::later(double wait, std::function<void()> what) {
  happenings_.push_back({now_ + wait * pace_, std::move(what)});
}

void State::record(Ticket* ticket, const std::string& kind, std::optional<std::string> by,
                   const std::string& text, std::optional<Int> page) {
  Event event;
  event.id = nextEvent_++;
  event.at = now_;
  event.by = std::move(by);
  event.kind = kind;
  event.page = page;
  event.text = text;
  if (ticket != nullptr) event.file_id = ticket->item.id;
  events_.push_back(std::move(event));
  touch(ticket);
}

void State::touch(Ticket* ticket) {
  ++rev_;
  if (ticket != nullptr) ticket->item.rev = ticket->item.rev.value_or(0) + 1;
}

Ticket* State::find(const std::string& id) {
  const auto found = std::ranges::find_if(
      tickets_, [&](const Ticket& ticket) { return ticket.item.id == id && !ticket.waiting; });
  return found == tickets_.end() ? nullptr : &*found;
}

std::pair<Ticket*, Finding*> State::findFinding(const std::string& id) {
  for (Ticket& ticket : tickets_) {
    if (ticket.waiting) continue;
    for (TicketVersion& version : ticket.versions) {
      const auto found = std::ranges::find(version.findings, id, &Finding::id);
      if (found != version.findings.end()) return {&ticket, &*found};
    }
  }
  return {nullptr, nullptr};
}

std::string State::nameOf(const std::string& email) const {
  if (const auto user = std::ranges::find(users_, email, &Person::email); user != users_.end()) {
    return user->firstName();
  }
  const auto guest = std::ranges::find(approvers_, email, &Guest::email);
  const std::string name = guest == approvers_.end() ? email : guest->shownName();
  return name.substr(0, name.find_first_of(" @"));
}

std::string State::secret() {
  std::random_device dice;
  std::string text;
  for (int i = 0; i < 32; ++i) text += "0123456789abcdef"[dice() % 16];
  return text;
}

std::string State::nextId(const std::string& prefix) {
  return prefix + std::to_string(nextNumber_++);
}

std::string State::codeFor(const std::string& email, const std::string& nonce) {
  const std::string code = secret();
  codes_[code] = {email, nonce};
  return code;
}

Outcome<SignInAnswer> State::exchange(const std::string& code, const std::string& nonce) {
  std::string email;
  if (code == "demo-renny") email = kRenny;
  if (code == "demo-jorvas") email = kJorvas;
  if (const auto made = codes_.find(code); made != codes_.end()) {
    const auto [whose, bound] = made->second;
    codes_.erase(made);  // whatever comes of it, a code is used once
    if (bound != nonce)
      return std::unexpected(Refusal{400, "That sign-in was for another window."});
    email = whose;
  }
  const auto user = std::ranges::find(users_, email, &Person::email);
  if (user == users_.end()) {
    return std::unexpected(Refusal{400, "That sign-in has run out. Try again."});
  }
  SignInAnswer answer{secret(), {user->email, user->name}};
  tokens_[answer.token] = email;
  user->last_seen = now_;
  record(nullptr, "signin", email, "Signed in");
  return answer;
}

const Person* State::personOf(const std::string& token) const {
  const auto found = tokens_.find(token);
  if (found == tokens_.end()) return nullptr;
  const auto user = std::ranges::find(users_, found->second, &Person::email);
  return user == users_.end() ? nullptr : &*user;
}

void State::forget(const std::string& token) {
  tokens_.erase(token);
  keeping_.more = true;
}

void State::seen(const std::string& email) {
  const auto user = std::ranges::find(users_, email, &Person::email);
  // Told in steps of minutes: a board that changed with every poll would never answer 304.
  if (user == users_.end() || now_ - user->last_seen.value_or(0) < 4 * kMinute) return;
  user->last_seen = now_;
  ++rev_;
}

FileItem State::itemOf(const Ticket& ticket) const {
  FileItem item = ticket.item;
  Counts counts;
  counts.pages = item.page_count;
  Int high = 0, medium = 0, low = 0, expected = 0, open = 0, issues = 0, total = 0;
  for (const Finding& finding : ticket.newest().findings) {
    if (finding.kind == "expected") ++expected;
    if (!isReal(finding)) continue;
    high += finding.severity == "high";
    medium += finding.severity == "medium";
    low += finding.severity == "low";
    if (finding.state == "issue") ++issues;
    // The small ones are there to be seen; nobody has to decide them.
    if (finding.state == "open" && finding.severity != "low") ++open;
    ++total;
  }
  item.counts = Counts{item.page_count, high, medium, low, expected, total};
  item.tally = Tally{open, issues, total};
  if (!ticket.newest().lost.empty()) item.summary = ticket.newest().lost;
  if (ticket.approval) {
    item.approval = ticket.approval->state;
    item.approval_by = ticket.approval->by;
    item.approval_at = ticket.approval->at;
    item.approvers = ticket.approval->asked;
  }
  return item;
}

BoardState State::boardFor(const std::string& email) const {
  BoardState board;
  board.rev = rev_;
  if (const auto me = std::ranges::find(users_, email, &Person::email); me != users_.end()) {
    board.me = {me->email, me->name};
  }
  board.users = users_;
  for (const Ticket& ticket : tickets_) {
    if (!ticket.waiting) board.files.push_back(itemOf(ticket));
  }
  board.sync = sync_;
  board.jobs = jobs_;
  board.reports = reports_;
  board.events.assign(events_.rbegin(), events_.rend());
  if (board.events.size() > 120) board.events.resize(120);
  board.guests = guests_;
  board.approvers = approvers_;
  return board;
}

Outcome<FileDetail> State::detailOf(const std::string& id, std::optional<Int> wanted) const {
  const auto ticket = std::ranges::find_if(
      tickets_, [&](const Ticket& entry) { return entry.item.id == id && !entry.waiting; });
  if (ticket == tickets_.end()) return std::unexpected(Refusal{404, "There is no such ticket."});
  const Int n = wanted.value_or(ticket->newest().record.n);
  const auto version = std::ranges::find_if(
      ticket->versions, [&](const TicketVersion& entry) { return entry.record.n == n; });
  if (version == ticket->versions.end()) {
    return std::unexpected(Refusal{404, "There is no such version."});
  }
  FileDetail detail;
  detail.file = itemOf(*ticket);
  detail.file.pages = version->pages;
  detail.file.refs = version->refs;
  detail.file.page_count = version->record.page_count;
  detail.findings = version->findings;
  detail.version = n;
  detail.versions.emplace();
  for (const TicketVersion& entry : ticket->versions) {
    Version record = entry.record;
    record.notes = std::ranges::count(ticket->notes, record.n, &StoredNote::version);
    if (!entry.lost.empty()) {
      record.status = "failed";
      record.summary = entry.lost;
    }
    detail.versions->push_back(std::move(record));
  }
  for (const StoredNote& note : ticket->notes) {
    if (note.version == n) detail.comments.push_back(note.note);
  }
  detail.approval = ticket->approval;
  detail.history.emplace();
  for (const Event& event : events_) {
    if (event.file_id == id) detail.history->push_back(event);
  }
  detail.origin = version->origin;
  return detail;
}

}  // namespace vellix::demo
