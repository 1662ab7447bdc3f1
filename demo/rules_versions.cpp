// Revisions: uploaded, read and compared beside, and shown as far as that has come.
#include <algorithm>
#include <chrono>

#include "proof_pdf.hpp"
#include "revision_check.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr double kCheck = 6'000;

std::unexpected<Refusal> refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

template <class Future>
bool ready(const Future& future) {
  return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
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
  std::vector<std::string> names;  // of its pages
};

// Against the newest of the versions before that can be read.
Changes changesSince(const std::vector<Earlier>& earlier, Int number,
                     const std::shared_ptr<const PdfFile>& pdf,
                     const std::shared_future<PdfReading>& reading) {
  if (reading.get().trouble != PdfTrouble::none) return {};
  for (const auto& [old, oldPdf, oldReading, names] : earlier) {
    if (oldReading.get().trouble != PdfTrouble::none) continue;
    const Compared before{old, oldReading.get(), oldPdf.get()->sketches(), names};
    return {old, changesBetween(before, {number, reading.get(), pdf->sketches(), {}})};
  }
  return {};
}

Page pageRecord(const std::shared_ptr<const PdfFile>& pdf, const PdfPage& page, int index,
                const std::string& folder, Pictures& pictures) {
  const QSize size = pixelsOf(page);
  const QSize small = pixelsWithin(page, 180, 720);
  Page entry;
  entry.i = index;
  entry.w = page.width;
  entry.h = page.height;
  entry.px = {static_cast<double>(size.width()), static_cast<double>(size.height())};
  entry.img = pageKey("files/" + folder, index);
  entry.thumb = pageKey("thumbs/" + folder, index);
  pictures.add(*entry.img, [pdf, index, size] { return pdf->picture(index, size); });
  pictures.add(*entry.thumb, [pdf, index, small] { return pdf->picture(index, small); });
  entry.refs.emplace();
  return entry;
}

// What is told of a PDF that could not be checked.
std::string excuseFor(const PdfReading& reading) {
  switch (reading.trouble) {
    case PdfTrouble::none:
      return {};
    case PdfTrouble::locked:
      return "The PDF is locked with a password. Upload one that opens without.";
    case PdfTrouble::empty:
      return "The PDF has no pages.";
    case PdfTrouble::tooLong:
      return "The PDF has " + std::to_string(reading.count) + " pages. Up to " +
             std::to_string(kMostPdfPages) + " can be checked.";
    case PdfTrouble::damaged:
      break;
  }
  return "The PDF is damaged and did not open. Upload it again.";
}

TicketVersion* versionOf(Ticket* ticket, Int number) {
  if (ticket == nullptr) return nullptr;
  const auto found = std::ranges::find_if(
      ticket->versions, [&](const TicketVersion& version) { return version.record.n == number; });
  return found == ticket->versions.end() ? nullptr : &*found;
}

// The newest version with pages ahead of that one; null when there is none.
const TicketVersion* before(const Ticket& ticket, Int number) {
  const TicketVersion* found = nullptr;
  for (const TicketVersion& version : ticket.versions) {
    if (version.record.n < number && !version.pages.empty()) found = &version;
  }
  return found;
}

}  // namespace

Outcome<Uploaded> State::upload(const std::string& id, Upload upload, const std::string& by) {
  Ticket* ticket = find(id);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  std::vector<Earlier> earlier;
  for (auto version = ticket->versions.rbegin(); version != ticket->versions.rend(); ++version) {
    makeReadable(*version);
    Earlier entry{version->record.n, version->printed, version->reading, {}};
    for (const Page& page : version->pages) entry.names.push_back(page.name());
    earlier.push_back(std::move(entry));
  }
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
  next.printed = std::async(std::launch::deferred, [pdf = upload.pdf] { return pdf; }).share();
  next.reading = std::async(std::launch::async, [pdf = upload.pdf] { return pdf->read(); }).share();
  const Int number = next.record.n;
  auto changes = std::async(std::launch::async, [earlier = std::move(earlier), number,
                                                 pdf = upload.pdf, reading = next.reading] {
    return changesSince(earlier, number, pdf, reading);
  });
  checks_.push_back({id, number, now_ + kCheck * pace_, next.reading, std::move(changes), false});
  Uploaded answer{number, next.reading};
  ticket->item.version = number;
  ticket->item.page_count.reset();
  ticket->item.refs.reset();
  ticket->item.summary.reset();
  ticket->versions.push_back(std::move(next));
  if (ticket->approval) {
    ticket->approval->state = "revised";
    ticket->approval->by = by;
    ticket->approval->at = now_;
  }
  record(ticket, "version", by, "Uploaded v" + std::to_string(number));
  return answer;
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
  const TicketVersion* old = before(*ticket, check.version);
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
  Changes changes = check.changes.get();
  const TicketVersion* old = versionOf(ticket, changes.old);
  const std::string name = "v" + std::to_string(check.version);
  std::string told = "Checked " + name;
  if (reading.trouble != PdfTrouble::none) {
    version->record.status = "failed";
    version->record.summary = excuseFor(reading);
    told = "Could not check " + name;
  } else if (old == nullptr) {
    version->record.status = "done";
    version->record.summary = "There was no version that it could be checked against.";
  } else {
    CheckResult result = weighed(std::move(changes.all), old->findings, version->pages.size());
    number(result.findings, check.id, check.version);
    version->findings = std::move(result.findings);
    version->record.status = "done";
    version->record.summary = std::move(result.summary);
    told += " against v" + std::to_string(old->record.n);
  }
  version->origin.summary = version->record.summary;
  if (&ticket->newest() == version) ticket->item.summary = version->record.summary;
  record(ticket, "checked", std::nullopt, told);
}

Outcome<std::function<std::string()>> State::proofOf(const std::string& id,
                                                     std::optional<Int> number,
                                                     bool repaired) const {
  const auto ticket = std::ranges::find_if(
      tickets_, [&](const Ticket& entry) { return entry.item.id == id && !entry.waiting; });
  if (ticket == tickets_.end()) return refuse(404, "There is no such ticket.");
  const Int wanted = number.value_or(ticket->newest().record.n);
  for (const TicketVersion& version : ticket->versions) {
    if (version.record.n != wanted) continue;
    if (version.pdf && !repaired) return [pdf = version.pdf] { return pdf->bytes(); };
    const TicketVersion& drawn = version.pdf ? ticket->versions.front() : version;
    if (drawn.proofs.empty()) return refuse(404, "That version has no pages.");
    return [title = ticket->item.heading(), pages = printed(drawn, repaired)] {
      return proofPdf(title, pages);
    };
  }
  return refuse(404, "There is no such version.");
}

}  // namespace vellix::demo
