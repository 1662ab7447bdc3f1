// Somebody's own proofs: a sync looks at their files again and checks what has not been checked.
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "check/compared.hpp"
#include "check/gathered.hpp"
#include "job_log.hpp"
#include "own_ticket.hpp"
#include "ready.hpp"
#include "state.hpp"
#include "texts.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostTold = 6;

// Without the figure behind it.
std::string bare(const std::string& step) { return step.substr(0, step.find(',')); }

}  // namespace

bool State::holdsOwn() const {
  return std::ranges::any_of(tickets_,
                             [](const Ticket& ticket) { return ticket.given.has_value(); });
}

std::expected<void, std::string> State::give(const std::vector<GivenProof>& proofs) {
  for (const GivenProof& given : proofs) {
    if (Ticket* known = find(ownId(given)); known != nullptr) {
      const GivenProof before = *std::exchange(known->given, given);
      // What is not given once more is as it was.
      for (auto path : {&GivenProof::sent, &GivenProof::previous, &GivenProof::fbc}) {
        if ((*known->given.*path).empty()) *known->given.*path = before.*path;
      }
      if (!given.title.empty()) known->item.title = given.title;
      if (given.due) known->item.due = given.due;
      touch(known);
    } else {
      auto ticket = ownTicket(given, now_, own_, pictures_);
      if (!ticket) return std::unexpected(ticket.error());
      tickets_.push_back(*std::move(ticket));
      record(&tickets_.back(), "new_file", std::nullopt,
             tickets_.back().item.heading() + " came in");
    }
    const Ticket& ticket = *find(ownId(given));
    if (const auto why = whyWithoutFbc(ticket, ticket.newest()); !why.empty()) {
      std::fprintf(stderr, "%s\n", why.c_str());
    }
  }
  if (holdsOwn() && (!sync_ || !sync_->active())) askForOwn("");
  return {};
}

void State::askForOwn(const std::string& by) {
  const auto body = decodeJson(R"({"kind":"sync"})");
  // Only a sync that goes on already would be refused, and it takes on what there is.
  [[maybe_unused]] const Done asked = startJob(body.value_or(Json{}), by);
}

// Whatever has to be read is read beside, so that no answer waits for a file.
void State::beginOwn() {
  std::vector<Watched> all;
  for (const Ticket& ticket : tickets_) {
    if (ticket.given) all.push_back(watchedOf(ticket));
  }
  worker_.own.emplace();
  worker_.own->looking = std::async(std::launch::async, [this, all = std::move(all)] {
    // One that was stopped may still be looking.
    const std::lock_guard lock(looking_);
    std::vector<Came> came;
    for (const Watched& watched : all) came.push_back(lookAt(watched, own_));
    return came;
  });
}

void State::takeCame(const Job& job, std::vector<Came> all) {
  OwnRun& run = *worker_.own;
  for (Came& came : all) {
    Ticket* ticket = find(came.ticket);
    if (ticket == nullptr) continue;
    if (!came.file) {
      logs_[job.id] += logLine(now_, came.file.error());
      run.told.push_back(came.file.error());
    } else if (*came.file) {
      addVersion(*ticket, **std::move(came.file), now_, pictures_);
      record(ticket, "version", std::nullopt,
             "v" + std::to_string(ticket->newest().record.n) + " lies at its place");
      outdateApproval(*ticket, std::nullopt);
    }
    // Other files may lie where the references are.
    if (TicketVersion& newest = ticket->newest();
        newest.pdf && !newest.pages.empty() && newest.against != referencesTag(*ticket)) {
      newest.unchecked = true;
    }
    for (TicketVersion& version : ticket->versions) {
      if (!version.unchecked || !version.pdf) continue;
      version.record.status = "checking";
      sumUp(*ticket, version, std::nullopt);
      touch(ticket);
      run.waiting.emplace_back(ticket->item.id, version.record.n);
    }
  }
  run.all = run.waiting.size();
}

void State::goOnWithOwn() {
  std::erase_if(worker_.ending, [](const auto& check) { return check->ended(); });
  std::erase_if(worker_.looked, [](const auto& looking) { return ready(looking); });
  Job* job = runningJob();
  if (!worker_.own || job == nullptr || worker_.silent) return;
  OwnRun& run = *worker_.own;
  if (run.looking.valid()) {
    tellStep(*job, "", "Looking at the files");
    if (!ready(run.looking)) return;
    takeCame(*job, run.looking.get());
  }
  while (true) {
    if (!run.check) {
      if (run.waiting.empty()) {
        finishOwn(*job);
        return;
      }
      beginCheck(run);
    }
    Ticket* ticket = find(run.ticket);
    TicketVersion* version = versionOf(ticket, run.version);
    if (version == nullptr || !run.check) continue;
    const CheckNews news = run.check->news();
    if (news.proof && news.proof->pages.size() != version->pages.size()) {
      loseProof(*ticket, *version, news.proof->trouble == PdfTrouble::unread);
      continue;
    }
    takeNews(*ticket, *version, news);
    tellStep(*job, run.all > 1 ? ticket->item.heading() + ": " : "", news.step);
    if (!news.done) return;
    endCheck(*ticket, *version);
  }
}

void State::beginCheck(OwnRun& run) {
  std::tie(run.ticket, run.version) = run.waiting.front();
  run.waiting.pop_front();
  run.told_ids.clear();
  run.facts.clear();
  Ticket* ticket = find(run.ticket);
  TicketVersion* version = versionOf(ticket, run.version);
  if (version == nullptr) return;
  run.troubles.clear();
  version->against = referencesTag(*ticket);
  run.references = referencesOf(*ticket, *version, run.troubles);
  tellRefs(*ticket, *version);
  touch(ticket);
  run.check = std::make_unique<VersionCheck>(version->pdf, run.references);
}

void State::loseProof(Ticket& ticket, TicketVersion& version, bool unread) {
  OwnRun& run = *worker_.own;
  run.check->stop();
  worker_.ending.push_back(std::move(run.check));
  // What could not be read this time is read with the next sync.
  version.unchecked = unread;
  version.record.status = "failed";
  sumUp(ticket, version,
        unread ? "The PDF could not be read just now. Sync once more."
               : "The PDF was changed since it came in, and cannot be read any more.");
  run.done.push_back(ticket.item.heading() + ": " + *version.record.summary);
  touch(&ticket);
}

void State::tellRefs(Ticket& ticket, TicketVersion& version) {
  // Only what could be read: all that is said there is that it was checked against them.
  version.origin.refs.emplace();
  std::ranges::copy_if(version.refs, std::back_inserter(*version.origin.refs),
                       [](const Ref& ref) { return ref.page_count.has_value(); });
  if (&ticket.newest() == &version) ticket.item.refs = version.refs;
}

void State::takeNews(Ticket& ticket, TicketVersion& version, const CheckNews& news) {
  OwnRun& run = *worker_.own;
  for (const auto& [role, facts] : news.references) {
    run.facts[role] = facts;
    if (showFacts(version, role, facts, run.troubles)) continue;
    std::erase_if(run.references, [&](const auto& reference) { return reference.role == role; });
  }
  for (const auto& [role, partners] : news.partners) {
    const auto reference = std::ranges::find(run.references, role, &CheckReference::role);
    if (reference == run.references.end()) continue;
    showPartners(ticket, version, *reference, run.facts[role], partners, pictures_);
  }
  const bool refs = !news.references.empty() || !news.partners.empty();
  if (refs) tellRefs(ticket, version);
  if (!news.findings.empty()) {
    putAmong(version.findings, news.findings,
             ticket.item.id + "-v" + std::to_string(version.record.n), ticket.item.id,
             run.told_ids);
  }
  if (refs || !news.findings.empty()) touch(&ticket);
}

// In the list a step stands once for each ticket, named `ahead`, without the pages that it counts.
void State::tellStep(Job& job, const std::string& ahead, const std::string& step) {
  job.beat = now_;
  if (job.step == ahead + step) return;
  const bool another = !job.step || bare(*job.step) != ahead + bare(step);
  job.step = ahead + step;
  if (another) {
    job.steps->push_back(ahead + bare(step));
    logs_[job.id] += logLine(now_, ahead + step);
  }
  ++rev_;
}

void State::endCheck(Ticket& ticket, TicketVersion& version) {
  OwnRun& run = *worker_.own;
  worker_.ending.push_back(std::move(run.check));
  std::set<std::string> noted;
  for (const StoredNote& stored : ticket.notes) noted.insert(stored.note.finding_id.value_or(""));
  dropUntold(version.findings, run.told_ids, noted);
  version.unchecked = false;
  version.record.status = "done";
  std::string summary = run.references.empty() ? "There is no file that it could be compared with."
                                               : summaryOf(version.findings, version.pages.size());
  for (const std::string& trouble : run.troubles) summary += " " + trouble;
  sumUp(ticket, version, summary);
  run.pages += version.pages.size();
  const std::string name = ticket.item.heading() + " v" + std::to_string(version.record.n);
  run.done.push_back(name + ": " + *version.record.summary);
  for (const Finding& finding : version.findings) {
    if (finding.severity != "high" || !isReal(finding) || run.told.size() >= kMostTold) continue;
    run.told.push_back(ticket.item.heading() + " p" + std::to_string(finding.page + 1) + ": " +
                       finding.title);
  }
  record(&ticket, "checked", std::nullopt, "Checked " + counted(version.pages.size(), "page"));
}

// Behind what was told of the demo's own books.
void State::finishOwn(Job& job) {
  OwnRun& run = *worker_.own;
  const std::size_t checked = run.done.size();
  JobResult result = job.result.value_or(JobResult{});
  result.new_files = result.new_files.value_or(0) + static_cast<Int>(checked);
  job.result = result;
  const std::string told =
      checked == 0 ? "Looked at the files again. Nothing new."
                   : "Checked " + counted(checked, "proof") + ", " + counted(run.pages, "page");
  Summary summary = job.summary.value_or(Summary{});
  const auto add = [](std::optional<Texts>& to, const Texts& more) {
    Texts all = to.value_or(Texts{});
    all.insert(all.end(), more.begin(), more.end());
    to = unlessEmpty(std::move(all));
  };
  add(summary.done, {told});
  add(summary.changed, run.done);
  add(summary.check, run.told);
  end(job, "done", std::move(summary));
  record(nullptr, "synced", std::nullopt, told);
}

void State::sumUp(Ticket& ticket, TicketVersion& version, std::optional<std::string> summary) {
  version.record.summary = summary;
  version.origin.summary = summary;
  if (&ticket.newest() == &version) ticket.item.summary = std::move(summary);
}

// What was found so far stays; the next sync checks the rest.
void State::tellStopped() {
  for (Ticket& ticket : tickets_) {
    for (TicketVersion& version : ticket.versions) {
      if (!version.unchecked || !ticket.given) continue;
      version.record.status = "failed";
      sumUp(ticket, version, "The check was stopped. The next sync checks it.");
      touch(&ticket);
    }
  }
}

void State::letOwnGo() {
  if (!worker_.own) return;
  OwnRun& run = *worker_.own;
  if (run.looking.valid()) worker_.looked.push_back(std::move(run.looking));
  if (run.check) {
    run.check->stop();
    worker_.ending.push_back(std::move(run.check));
  }
  tellStopped();
  worker_.own.reset();
}

}  // namespace vellix::demo
