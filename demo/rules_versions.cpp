// Revisions: uploaded, read and compared beside, and shown as far as that has come.
#include <algorithm>

#include "pdf_pages.hpp"
#include "proof_pdf.hpp"
#include "ready.hpp"
#include "revision_check.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr double kCheck = 6'000;

std::unexpected<Refusal> refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

std::vector<PrintedPage> printed(const TicketVersion& version, bool repaired) {
  std::vector<PrintedPage> pages;
  for (std::size_t i = 0; i < version.proofs.size(); ++i) {
    const ProofPage& proof = version.proofs[i];
    pages.push_back(
        {repaired ? proof.sent : proof.proof, repaired || !version.pages[i].ocr.value_or(false)});
  }
  return pages;
}

// A version of the demo's own is printed and read like any other, so that all are compared alike.
void makeReadable(TicketVersion& version) {
  if (version.reading.valid()) return;
  version.printed = std::async(std::launch::deferred, [pages = printed(version, false)] {
                      return PdfFile::of(proofPdf("Proof", pages));
                    }).share();
  version.reading = std::async(std::launch::deferred, [pdf = version.printed] {
                      return pdf.get() ? pdf.get()->read() : PdfReading{};
                    }).share();
}

struct Earlier {
  Int number = 0;
  std::shared_future<std::shared_ptr<const PdfFile>> pdf;
  std::shared_future<PdfReading> reading;
};

// Against the newest of the versions before that can be read.
Changes changesSince(const std::vector<Earlier>& earlier, Int number,
                     const std::shared_ptr<const PdfFile>& pdf,
                     const std::shared_future<PdfReading>& reading) {
  if (reading.get().trouble != PdfTrouble::none) return {};
  for (const auto& [old, oldPdf, oldReading] : earlier) {
    if (oldReading.get().trouble != PdfTrouble::none) continue;
    return {old, changesBetween({old, oldPdf.get()}, {number, pdf})};
  }
  return {};
}

}  // namespace

Outcome<Uploaded> State::upload(const std::string& id, Upload upload, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  TicketVersion next;
  next.record.n = ticket->newest().record.n + 1;
  next.record.kind = "revision";
  if (!upload.filename.empty()) next.record.filename = upload.filename;
  if (!upload.note.empty()) next.record.note = upload.note;
  next.record.by = by;
  next.record.at = now_;
  next.record.size = static_cast<Int>(upload.size);
  next.record.status = "checking";
  next.origin = {ticket->item.supplier, by, now_, next.record.filename, std::nullopt, std::nullopt,
                 ticket->item.links};
  next.pdf = upload.pdf;
  next.path = upload.path;
  const Int number = next.record.n;
  ticket->item.version = number;
  ticket->item.page_count.reset();
  ticket->item.refs.reset();
  ticket->item.summary.reset();
  ticket->versions.push_back(std::move(next));
  compareBeside(*ticket, ticket->newest());
  outdateApproval(*ticket, by);
  record(ticket, "version", by, "Uploaded v" + std::to_string(number));
  return Uploaded{number, ticket->newest().reading};
}

void State::compareBeside(Ticket& ticket, TicketVersion& version) {
  const Int number = version.record.n;
  std::vector<Earlier> earlier;
  for (auto old = ticket.versions.rbegin(); old != ticket.versions.rend(); ++old) {
    // Of somebody's own only the pages are read here.
    if (ticket.given || old->record.n >= number) continue;
    makeReadable(*old);
    earlier.push_back({old->record.n, old->printed, old->reading});
  }
  auto pdf = version.pdf;
  version.printed = std::async(std::launch::deferred, [pdf] { return pdf; }).share();
  version.reading =
      std::async(std::launch::async, [pdf] { return pdf ? pdf->read() : PdfReading{}; }).share();
  auto changes = std::async(std::launch::async,
                            [earlier = std::move(earlier), number, pdf, reading = version.reading] {
                              return changesSince(earlier, number, pdf, reading);
                            });
  // Pages that were shown before the service ended are there.
  checks_.push_back({ticket.item.id, number, now_ + kCheck * pace_, version.reading,
                     std::move(changes), !version.pages.empty()});
}

// In the order of the uploads, so that a version's pages are there before those matched to them.
void State::goOnWithChecks() {
  for (Check& check : checks_) {
    if (!check.read && !ready(check.reading)) break;
    if (!check.read) showPages(check);
    check.read = true;
  }
  while (!checks_.empty()) {
    Check& check = checks_.front();
    if (checksWait_ || !check.read || check.due > now_ || !ready(check.changes)) break;
    finishCheck(check);
    checks_.erase(checks_.begin());
  }
}

void State::showPages(const Check& check) {
  Ticket* ticket = find(check.id);
  TicketVersion* version = versionOf(ticket, check.version);
  const PdfReading& reading = check.reading.get();
  if (version == nullptr || reading.trouble != PdfTrouble::none) return;
  const TicketVersion* old = newestBefore(*ticket, check.version);
  const std::string folder = check.id + "/v" + std::to_string(check.version);
  for (std::size_t i = 0; i < reading.pages.size(); ++i) {
    Page page = pageRecord(version->pdf, reading.pages[i], static_cast<int>(i), folder, pictures_);
    if (old != nullptr && i < old->pages.size()) {
      const Page& was = old->pages[i];
      page.label = was.label;
      (*page.refs)["previous"] = {was.i, was.label, was.img, was.px, 1.0, "number"};
    }
    version->pages.push_back(std::move(page));
  }
  const auto count = static_cast<Int>(reading.pages.size());
  version->record.page_count = count;
  if (old != nullptr) {
    const auto matched = std::min(count, static_cast<Int>(old->pages.size()));
    version->refs = {{"previous", old->record.filename, std::nullopt,
                      static_cast<Int>(old->pages.size()), matched, std::nullopt}};
  }
  version->origin.refs = version->refs;
  if (ticket->newest().record.n == check.version) {
    ticket->item.page_count = count;
    ticket->item.refs = version->refs;
    ticket->item.thumb = version->pages.front().thumb;
  }
  touch(ticket);
}

void State::finishCheck(Check& check) {
  Ticket* ticket = find(check.id);
  TicketVersion* version = versionOf(ticket, check.version);
  if (version == nullptr) return;
  const PdfReading& reading = check.reading.get();
  if (ticket->given && reading.trouble == PdfTrouble::none) {
    // Like every version of it, against all that there is.
    version->unchecked = true;
    if (worker_.own) {
      worker_.own->waiting.emplace_back(check.id, check.version);
      ++worker_.own->all;
    } else if (!sync_ || !sync_->active()) {
      askForOwn(version->record.by.value_or(kRenny));
    }
    return;
  }
  Changes changes = check.changes.get();
  const TicketVersion* old = versionOf(ticket, changes.old);
  const std::string name = "v" + std::to_string(check.version);
  std::string told = "Checked " + name;
  version->record.status = "done";
  if (reading.trouble != PdfTrouble::none) {
    version->record.status = "failed";
    sumUp(*ticket, *version, excuseFor(reading));
    told = "Could not check " + name;
  } else if (old == nullptr) {
    sumUp(*ticket, *version, "There was no version that it could be checked against.");
  } else {
    CheckResult result = weighed(std::move(changes.all), old->findings, version->pages.size());
    number(result.findings, check.id, check.version);
    version->findings = std::move(result.findings);
    sumUp(*ticket, *version, std::move(result.summary));
    told += " against v" + std::to_string(old->record.n);
  }
  record(ticket, "checked", std::nullopt, told);
}

Outcome<State::AsPdf> State::proofOf(const std::string& id, std::optional<Int> number,
                                     bool repaired) const {
  const auto ticket = std::ranges::find_if(
      tickets_, [&](const Ticket& entry) { return entry.item.id == id && !entry.waiting; });
  if (ticket == tickets_.end()) return refuse(404, "There is no such ticket.");
  const Int wanted = number.value_or(ticket->newest().record.n);
  for (const TicketVersion& version : ticket->versions) {
    if (version.record.n != wanted) continue;
    if (version.pdf && !repaired) return AsPdf{.file = version.pdf};
    const TicketVersion& drawn = version.pdf ? ticket->versions.front() : version;
    if (drawn.proofs.empty()) return refuse(404, "That version has no pages.");
    return AsPdf{.print = [title = ticket->item.heading(), pages = printed(drawn, repaired)] {
      return proofPdf(title, pages);
    }};
  }
  return refuse(404, "There is no such version.");
}

}  // namespace vellix::demo
