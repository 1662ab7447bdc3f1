// Versions whose PDF lies on the disk are read again from there.
#include <cstdio>

#include "pdf_pages.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

// Where the pages of a reference lie, of somebody's own proof.
std::shared_ptr<const PdfFile> referenceOf(const Ticket& ticket, const TicketVersion& version,
                                           const std::string& role) {
  if (role == "submitted") return PdfFile::at(ticket.given->sent);
  if (role == "fbc") return PdfFile::at(ticket.given->fbc);
  const TicketVersion* before = newestBefore(ticket, version.record.n);
  return before == nullptr ? nullptr : before->pdf;
}

void enterPicturesOf(const Ticket& ticket, const TicketVersion& version, Pictures& pictures) {
  std::map<std::string, std::shared_ptr<const PdfFile>> references;
  for (const Page& page : version.pages) {
    if (version.pdf && page.img && page.thumb) enterPictures(version.pdf, page, pictures);
    // The versions of all others refer to each other's pages.
    if (!ticket.given || !page.refs) continue;
    for (const auto& [role, ref] : *page.refs) {
      const auto [at, added] = references.try_emplace(role);
      if (added) at->second = referenceOf(ticket, version, role);
      if (at->second && ref.img) enterPicture(at->second, ref, pictures);
    }
  }
}

}  // namespace

void State::takeUpVersions(Ticket& ticket) {
  for (TicketVersion& version : ticket.versions) {
    if (version.path.empty()) continue;
    version.pdf = PdfFile::at(version.path);
    if (!version.pdf) {
      version.lost = asText(version.path) + " is gone. The pages of this version cannot be shown.";
    } else if (!version.stamp.empty() && version.pdf->tag() != version.stamp) {
      version.pdf.reset();
      version.lost =
          asText(version.path) +
          " was changed since it was checked. The pages of this version cannot be shown.";
    }
    if (!version.lost.empty()) {
      // There is nothing left that a check could read.
      version.unchecked = false;
      if (version.record.status == "checking") version.record.status = "failed";
      std::fprintf(stderr, "%s, v%lld: %s\n", ticket.item.heading().c_str(),
                   static_cast<long long>(version.record.n), version.lost.c_str());
    }
    enterPicturesOf(ticket, version, pictures_);
    version.printed =
        std::async(std::launch::deferred, [pdf = version.pdf] { return pdf; }).share();
    version.reading = std::async(std::launch::deferred, [pdf = version.pdf] {
                        return pdf ? pdf->read() : PdfReading{};
                      }).share();
  }
  for (TicketVersion& version : ticket.versions) {
    if (version.path.empty() || version.record.status != "checking") continue;
    // The next sync goes on with what is somebody's own, once its pages are there.
    if (ticket.given && !version.pages.empty()) {
      version.unchecked = true;
    } else {
      compareBeside(ticket, version);
    }
  }
}

}  // namespace vellix::demo
