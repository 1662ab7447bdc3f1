// Keeps the state: what changed since it was kept last goes to the shelf.
#include "state_kept.hpp"

#include <filesystem>
#include <span>

#include "state.hpp"

namespace vellix::demo {
namespace {

// Puts values as JSON, and remembers the first trouble.
class Putting {
 public:
  explicit Putting(Shelf& shelf) : shelf_(shelf) {}

  template <class T>
  void put(const std::string& key, const T& value) {
    auto text = encode(value);
    if (text) {
      shelf_.put(key, *std::move(text));
    } else {
      fail(std::unexpected(key + " cannot be kept: " + text.error().why + "."));
    }
  }
  // A list, from the part on that holds `from`; `wrapped` makes a record of a part.
  template <class T>
  void putParts(const std::string& prefix, const std::vector<T>& list, std::size_t from,
                const auto& wrapped) {
    std::size_t part = from / kPart;
    for (; part * kPart < list.size(); ++part) {
      const auto some = std::span(list).subspan(part * kPart);
      put(partKey(prefix, part), wrapped(some.first(std::min(kPart, some.size()))));
    }
    while (shelf_.find(partKey(prefix, part)) != nullptr) shelf_.drop(partKey(prefix, part++));
  }
  void fail(Kept done) {
    if (done_) done_ = std::move(done);
  }
  Kept end() { return done_ ? shelf_.keep() : done_; }

 private:
  Shelf& shelf_;
  Kept done_;
};

template <class T>
std::vector<T> copied(std::span<const T> some) {
  return {some.begin(), some.end()};
}

FileDetail blank(const std::string& id) {
  FileDetail detail;
  detail.file.id = id;
  return detail;
}

void putVersion(Putting& to, const Shelf& shelf, const std::string& id,
                const TicketVersion& version) {
  const std::string key = versionKey(id, version.record.n);
  FileDetail detail = blank(id);
  detail.file.refs = version.refs;
  detail.versions = {version.record};
  detail.origin = version.origin;
  to.put(key, detail);
  const std::string name = std::filesystem::path(version.path).filename();
  const bool own = version.path == shelf.pathOf(name);
  to.put(key + "/file", KeptFile{escapedPath(own ? name : version.path), version.stamp,
                                 version.unchecked, version.against});
  to.putParts(key + "/findings/", version.findings, 0, [&](std::span<const Finding> some) {
    FileDetail part = blank(id);
    part.findings = copied(some);
    return part;
  });
  // The pages of the demo's own books come from their plan.
  if (!version.proofs.empty()) return;
  to.putParts(key + "/pages/", version.pages, 0, [&](std::span<const Page> some) {
    FileDetail part = blank(id);
    part.file.pages = copied(some);
    return part;
  });
}

void putTicket(Putting& to, Shelf& shelf, const Ticket& ticket) {
  const std::string& id = ticket.item.id;
  FileDetail detail;
  detail.file = ticket.item;
  detail.approval = ticket.approval;
  to.put(ticketKey(id), detail);
  if (ticket.given) {
    GivenProof given = *ticket.given;
    for (std::string* path : {&given.proof, &given.sent, &given.previous, &given.fbc}) {
      *path = escapedPath(*path);
    }
    to.put(ticketKey(id) + "/given", given);
  }
  for (const TicketVersion& version : ticket.versions) putVersion(to, shelf, id, version);
  std::size_t place = 0;
  for (const StoredNote& note : ticket.notes) {
    FileDetail one = blank(id);
    one.comments = {note.note};
    one.version = note.version;
    to.put(noteKey(id, place++), one);
  }
  while (shelf.find(noteKey(id, place)) != nullptr) shelf.drop(noteKey(id, place++));
}

}  // namespace

Kept State::keep() {
  Shelf* shelf = keeping_.shelf;
  if (shelf == nullptr || (rev_ == keeping_.rev && !keeping_.more)) return {};
  keeping_.more = true;  // until all of it is kept
  Putting to(*shelf);
  to.fail(keepFiles());
  KeptBoard board{opened_, books_, address_, keeping_.starts, rev_, nextEvent_, nextNumber_,
                  {},      {},     {}};
  for (const Ticket& ticket : tickets_) {
    const std::string& id = ticket.item.id;
    board.tickets.push_back(id);
    if (ticket.waiting) board.waiting.push_back(id);
    // Whatever changes a ticket counts its revision on.
    const Int rev = ticket.item.rev.value_or(0);
    if (const auto known = keeping_.tickets.find(id);
        known != keeping_.tickets.end() && known->second == rev) {
      continue;
    }
    putTicket(to, *shelf, ticket);
    keeping_.tickets[id] = rev;
  }
  board.uncounted.assign(uncounted_.begin(), uncounted_.end());
  to.put(kBoardKey, board);
  BoardState people;
  people.users = users_;
  people.guests = guests_;
  people.approvers = approvers_;
  to.put(kPeopleKey, people);
  BoardState jobs;
  jobs.sync = sync_;
  jobs.jobs = jobs_;
  jobs.reports = reports_;
  to.put(kJobsKey, jobs);
  BoardState syncs;
  syncs.jobs = oldSyncs_;
  to.put(kOldSyncsKey, syncs);
  for (const auto& [job, log] : logs_) to.put(kLogs + job, log);
  to.put(kTokensKey, tokens_);
  to.put(kLinksKey, links_);
  // They only ever grow.
  to.putParts(kEvents, events_, keeping_.events, [](std::span<const Event> some) {
    BoardState part;
    part.events = copied(some);
    return part;
  });
  keeping_.events = events_.size();
  Kept done = to.end();
  if (done) {
    keeping_.more = false;
    keeping_.rev = rev_;
  }
  return done;
}

// Ahead of what names them.
Kept State::keepFiles() {
  const auto keep = [&](const std::string& name, const std::string& bytes) -> Kept {
    if (keeping_.files.contains(name)) return {};
    Kept done = keeping_.shelf->keepFile(name, bytes);
    if (done) keeping_.files.insert(name);
    return done;
  };
  for (const Report& report : reports_) {
    const auto pdf = pdfs_.find(report.id);
    if (pdf == pdfs_.end()) continue;
    if (Kept done = keep(reportFile(report.id), pdf->second); !done) return done;
  }
  for (const Person& user : users_) {
    const auto photo = user.photo ? pictures_.find(*user.photo) : std::nullopt;
    if (!photo) continue;
    if (Kept done = keep(photoFile(*user.photo), *photo); !done) return done;
  }
  return {};
}

}  // namespace vellix::demo
