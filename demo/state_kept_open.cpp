// Lays what was kept over the board as it was planned, and lets go on what was under way.
#include <algorithm>
#include <filesystem>

#include "body.hpp"
#include "kept_reading.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

// A link that was made at another address leads to this one.
void move(std::optional<std::string>& url, const std::string& from, const std::string& to) {
  if (url && url->starts_with(from + "/")) url = to + url->substr(from.size());
}

std::map<std::string, std::string> textsOf(const Json& json) {
  std::map<std::string, std::string> texts;
  if (json.object() == nullptr) return texts;
  for (const auto& [key, value] : *json.object()) {
    if (const std::string* text = value.text()) texts[key] = *text;
  }
  return texts;
}

}  // namespace

std::optional<KeptBoard> boardKeptOn(const Shelf* shelf) {
  const std::string* text = shelf == nullptr ? nullptr : shelf->find(kBoardKey);
  if (text == nullptr) return std::nullopt;
  const auto json = decodeJson(*text);
  if (!json) return std::nullopt;
  const auto number = [&](const char* key) { return numberAt(*json, key); };
  const auto opened = number("opened");
  const auto rev = number("rev");
  const auto event = number("next_event");
  const auto next = number("next_number");
  const auto address = textAt(*json, "address");
  if (!opened || !rev || !event || !next || !address) return std::nullopt;
  return KeptBoard{*opened,
                   flagAt(*json, "books").value_or(true),
                   *address,
                   static_cast<Int>(number("starts").value_or(0)),
                   static_cast<Int>(*rev),
                   static_cast<Int>(*event),
                   static_cast<Int>(*next),
                   textsAt(*json, "tickets"),
                   textsAt(*json, "waiting"),
                   textsAt(*json, "uncounted")};
}

Kept State::takeUp(Shelf& shelf, double now) {
  keeping_.shelf = &shelf;
  keeping_.starts = 1;
  if (shelf.isNew() || shelf.keysUnder("").empty()) return keep();
  const auto board = boardKeptOn(&shelf);
  const KeptReading from(shelf);
  if (!board) return std::unexpected(KeptReading::unreadable(kBoardKey, "it is no board"));
  keeping_.starts = board->starts + 1;
  // Only a colleague's next action is among them, and it is no action for every minute since.
  const bool colleague = !happenings_.empty();
  happenings_.clear();
  now_ = std::max(opened_, now);
  if (Kept done = layOver(*board, from); !done) return done;
  if (colleague) scheduleColleague();
  takeUpJobs();
  for (Ticket& ticket : tickets_) {
    if (ticket.item.share) {
      move(ticket.item.share->url, board->address, address_);
      move(ticket.item.share->embed_url, board->address, address_);
    }
    takeUpVersions(ticket);
    // Of those that the demo opens with nobody is about to answer.
    if (ticket.approval && ticket.approval->requested_at.value_or(0) > opened_)
      awaitAnswers(ticket);
  }
  std::set<std::string> files;
  for (const Report& report : reports_) files.insert(reportFile(report.id));
  for (const Person& user : users_) {
    if (!user.photo) continue;
    const std::string name = photoFile(*user.photo);
    files.insert(name);
    if (auto bytes = shelf.fileOf(name)) pictures_.put(*user.photo, *std::move(bytes));
  }
  keeping_.files = files;
  for (const Ticket& ticket : tickets_) {
    for (const TicketVersion& version : ticket.versions)
      files.insert(std::filesystem::path(version.path).filename());
  }
  shelf.removeFilesBut(files);
  keeping_.more = true;
  return keep();
}

Kept State::layOver(const KeptBoard& board, const KeptReading& from) {
  rev_ = board.rev;
  nextEvent_ = board.next_event;
  nextNumber_ = board.next_number;
  uncounted_ = {board.uncounted.begin(), board.uncounted.end()};
  std::vector<Ticket> planned = std::exchange(tickets_, {});
  for (const std::string& id : board.tickets) {
    const auto plan = std::ranges::find(planned, id, [](const Ticket& one) { return one.item.id; });
    Ticket ticket = plan == planned.end() ? Ticket{} : std::move(*plan);
    if (Kept done = from.ticket(id, ticket); !done) return done;
    ticket.waiting = std::ranges::find(board.waiting, id) != board.waiting.end();
    tickets_.push_back(std::move(ticket));
  }
  const auto people = from.record<BoardState>(kPeopleKey);
  const auto jobs = from.record<BoardState>(kJobsKey);
  const auto syncs = from.record<BoardState>(kOldSyncsKey);
  const auto tokens = from.record<Json>(kTokensKey);
  const auto links = from.record<Json>(kLinksKey);
  if (!people) return std::unexpected(people.error());
  if (!jobs) return std::unexpected(jobs.error());
  if (!syncs) return std::unexpected(syncs.error());
  if (!tokens) return std::unexpected(tokens.error());
  if (!links) return std::unexpected(links.error());
  users_ = people->users;
  guests_ = people->guests.value_or(std::vector<Guest>{});
  approvers_ = people->approvers.value_or(std::vector<Guest>{});
  sync_ = jobs->sync;
  jobs_ = jobs->jobs;
  reports_ = jobs->reports;
  oldSyncs_ = syncs->jobs;
  tokens_ = textsOf(*tokens);
  links_ = textsOf(*links);
  // They are read when somebody asks for one.
  pdfs_.clear();
  logs_.clear();
  events_.clear();
  Kept done = from.each<BoardState>(kEvents, [&](const std::string&, BoardState&& part) {
    std::ranges::move(part.events, std::back_inserter(events_));
  });
  if (!done) return done;
  return from.each<Json>(kLogs, [&](const std::string& job, Json&& log) {
    if (const std::string* text = log.text()) logs_[job] = *text;
  });
}

}  // namespace vellix::demo
