#include "catalog.hpp"

#include <algorithm>
#include <cmath>

#include "clock.hpp"

namespace vellix::demo {
namespace {

std::vector<double> pixelsOf(const PageArt& page) {
  const QSize size = sizeOf(page);
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

std::vector<PageArt> sentPages(const TicketPlan& plan) {
  const Book& book = bookOf(plan.book);
  std::vector<PageArt> pages;
  if (plan.firstNumber > 0) {
    for (TextPage& page :
         pagesOf(book, plan.pages, plan.firstNumber, plan.secondOpening, plan.plates)) {
      pages.push_back(textArt(std::move(page)));
    }
  } else if (plan.component == "Jacket") {
    pages = {coverArt(book, PageKind::jacket), coverArt(book, PageKind::flaps)};
  } else {
    pages = {coverArt(book, PageKind::front), coverArt(book, PageKind::back)};
  }
  if (std::ssize(pages) > plan.pages) pages.resize(static_cast<std::size_t>(plan.pages));
  return pages;
}

Page pageRecord(Int index, const PageArt& art, const std::string& folder, const std::string& thumbs,
                Pictures& pictures) {
  Page page;
  page.i = index;
  if (art.kind == PageKind::text) page.label = std::to_string(art.text.number);
  page.px = pixelsOf(art);
  page.w = page.px->at(0) * 0.3;  // 240 pixels an inch, 72 points an inch
  page.h = page.px->at(1) * 0.3;
  page.img = pageKey(folder, static_cast<int>(index));
  page.thumb = pageKey(thumbs, static_cast<int>(index));
  const auto shared = std::make_shared<const PageArt>(art);
  pictures.add(*page.img, shared);
  pictures.add(*page.thumb, shared, 180);
  page.refs = std::map<std::string, RefPage>{};
  return page;
}

RefPage refRecord(Int index, const PageArt& art, const std::string& folder, Pictures& pictures) {
  RefPage ref;
  ref.i = index;
  if (art.kind == PageKind::text) ref.label = std::to_string(art.text.number);
  ref.img = pageKey(folder, static_cast<int>(index));
  ref.px = pixelsOf(art);
  ref.score = 0.97;
  ref.how = art.kind == PageKind::text ? "text" : "picture";
  pictures.add(*ref.img, std::make_shared<const PageArt>(art));
  return ref;
}

Finding passed(Int page, const PageArt& art) {
  Finding finding;
  finding.page = page;
  finding.against = "submitted";
  finding.kind = "pass";
  finding.severity = "low";
  finding.state = "pass";
  finding.title = "The barcode reads";
  finding.detail = art.barcode + ", with a right check digit.";
  finding.box = fractionBox(art, Element::barcode);
  finding.ref_box = finding.box;
  return finding;
}

}  // namespace

std::string pageKey(const std::string& folder, int index) {
  std::string number = std::to_string(index + 1);
  number.insert(0, 3 - std::min<std::size_t>(number.size(), 3), '0');
  return folder + "/p" + number + ".jpg";
}

void number(std::vector<Finding>& findings, const std::string& ticketId, Int version) {
  Int ord = 0;
  for (Finding& finding : findings) {
    finding.file_id = ticketId;
    finding.ord = ord;
    finding.id = ticketId + "-v" + std::to_string(version) + "-" + std::to_string(++ord);
  }
}

Ticket ticketOf(const TicketPlan& plan, double now, Pictures& pictures) {
  const Book& book = bookOf(plan.book);
  const std::string thirdRole = plan.track == "reprint" ? "latest" : "fbc";
  const double received = std::round(now - plan.receivedHoursAgo * kHour);
  Ticket ticket;
  ticket.waiting = plan.waiting;
  TicketVersion version;
  std::vector<Finding> findings;
  Int index = 0;
  Int matchedThird = 0;
  const auto sent = sentPages(plan);
  for (std::size_t s = 0; s < sent.size(); ++s) {
    const int source = static_cast<int>(s);
    if (source == plan.missingPage) {
      Finding finding;
      finding.page = std::max<Int>(index - 1, 0);
      finding.against = "submitted";
      finding.kind = "missing_page";
      finding.severity = "high";
      finding.state = "open";
      finding.title = "A page is missing";
      finding.detail = "Page " + std::to_string(sent[s].text.number) +
                       " of our file is not in the proof. The proof goes on with page " +
                       std::to_string(sent[s].text.number + 1) + ".";
      findings.push_back(finding);
      continue;
    }
    ProofPage proof{sent[s], sent[s], {}};
    PageArt third = sent[s];
    third.earlierPrinting = plan.track == "reprint" && third.kind != PageKind::text;
    std::vector<const Plant*> done;
    for (const Plant& wanted : plan.plants) {
      if (wanted.page != source) continue;
      if (auto planted = plant(proof.proof, wanted.defect, wanted.line)) {
        proof.planted.push_back(std::move(*planted));
        done.push_back(&wanted);
      }
    }
    for (std::size_t d = 0; d < done.size(); ++d) {
      Finding finding = located(proof.planted[d], proof.proof, proof.sent);
      finding.page = index;
      finding.against = "submitted";
      finding.severity = done[d]->severity;
      finding.state = done[d]->state;
      if (finding.state != "open") {
        finding.state_by = plan.assignee.empty() ? kRenny : plan.assignee;
        finding.state_at = std::min(received + 5 * kHour, now - 10 * kMinute);
      }
      findings.push_back(std::move(finding));
    }
    const bool hasThird =
        plan.third && std::ranges::find(plan.thirdMissing, source) == plan.thirdMissing.end();
    for (const auto& [page, line] : plan.edits) {
      if (page != source || !hasThird) continue;
      const auto planted = plant(third, Defect::changedWord, line);
      if (!planted) continue;
      Finding finding = located(*planted, proof.proof, third);
      finding.page = index;
      finding.against = thirdRole;
      finding.kind = "expected";
      finding.state = "expected";
      finding.severity = "low";
      finding.title = "Our edit came through";
      finding.detail = "The word was changed in our file since the older one.";
      std::swap(finding.before, finding.after);
      findings.push_back(std::move(finding));
    }
    const bool front = sent[s].kind == PageKind::front || sent[s].kind == PageKind::jacket;
    if (front && hasThird && third.earlierPrinting) {
      Finding finding;
      finding.page = index;
      finding.against = thirdRole;
      finding.kind = "expected";
      finding.state = "expected";
      finding.severity = "low";
      finding.title = "Our edit came through";
      finding.detail = "The line under the title is new since the last print.";
      finding.before = kEarlierTagline;
      finding.after = book.tagline;
      finding.box = fractionBox(proof.proof, Element::tagline);
      finding.ref_box = fractionBox(third, Element::tagline);
      findings.push_back(std::move(finding));
    }
    const bool barcodeOk = proof.proof.barcode == book.isbn && !proof.proof.barcode.empty();
    if (barcodeOk && (sent[s].kind == PageKind::back || sent[s].kind == PageKind::jacket)) {
      findings.push_back(passed(index, proof.proof));
    }

    Page page = pageRecord(index, proof.proof, "files/" + plan.id + "/v1",
                           "thumbs/" + plan.id + "/v1", pictures);
    if (source == plan.scanned) page.ocr = true;
    if (plan.sentFound) {
      (*page.refs)["submitted"] =
          refRecord(source, sent[s], "refs/" + plan.id + "/submitted", pictures);
    }
    if (hasThird) {
      (*page.refs)[thirdRole] =
          refRecord(source, third, "refs/" + plan.id + "/" + thirdRole, pictures);
      ++matchedThird;
    }
    version.pages.push_back(std::move(page));
    version.proofs.push_back(std::move(proof));
    ++index;
  }
  number(findings, plan.id, 1);
  version.findings = std::move(findings);

  const std::string heading = book.title + " " + plan.component;
  const std::string slug = plan.book + "-" + plan.id;
  const std::string drive = "https://drive.tessarine.example/";
  if (plan.sentFound) {
    version.refs.push_back({"submitted", heading + " sent.pdf", drive + "f/" + slug + "-sent",
                            static_cast<Int>(sent.size()), index, std::nullopt});
  }
  if (plan.third) {
    Ref ref{thirdRole,
            heading + (plan.track == "reprint" ? " last print.pdf" : " FBC.pdf"),
            drive + "f/" + slug + "-" + thirdRole,
            static_cast<Int>(sent.size()),
            matchedThird,
            std::nullopt};
    if (!plan.thirdMissing.empty()) {
      ref.note = plan.track == "reprint"
                     ? "The last print was set anew from here on, so some pages "
                       "have no counterpart."
                     : "The FBC in the PO folder stops before this page.";
    }
    version.refs.push_back(std::move(ref));
  } else if (plan.sentFound) {
    version.refs.push_back(
        {thirdRole, std::nullopt, std::nullopt, std::nullopt, 0, "The PO folder has none yet."});
  }

  FileItem& item = ticket.item;
  item.id = plan.id;
  item.key = plan.po + "/" + plan.id;
  item.po = plan.po;
  item.title = book.title;
  item.component = plan.component;
  item.supplier = plan.supplier;
  item.filename = plan.po + " " + heading + " proof.pdf";
  item.kind = plan.firstNumber > 0 ? "text" : "cover";
  const std::string domain = plan.supplier == "Halden"         ? "halden.example"
                             : plan.supplier == "Orient Press" ? "orient-press.example"
                                                               : "kestrel-print.example";
  item.sender = "proofs@" + domain;
  item.received = received;
  if (index > 0) item.page_count = index;
  item.links = Links{"https://mail.tessarine.example/mail/#all/" + slug, drive + "f/" + slug,
                     drive + "d/" + plan.po, drive + "f/" + slug + "-indd", heading + ".indd"};
  item.summary = plan.summary;
  item.status = plan.status;
  item.created = received + 4 * kMinute;
  item.rev = 1;
  if (!version.pages.empty()) item.thumb = version.pages.front().thumb;
  item.track = plan.track;
  if (!plan.assignee.empty()) {
    item.assignee = plan.assignee;
    item.assigned_by = kRenny;
  }
  item.due = plan.due.value_or(received + 48 * kHour);
  if (plan.urgent) item.urgent = true;
  item.version = 1;
  item.refs = version.refs;

  version.record.n = 1;
  version.record.kind = "proof";
  version.record.filename = item.filename;
  version.record.from = item.sender;
  version.record.at = received;
  version.record.size = 2'400'000 + static_cast<Int>(index) * 181'000;
  version.record.page_count = item.page_count;
  version.record.summary = plan.summary;
  version.record.status = "done";
  version.origin = {item.supplier, item.sender,  item.received, item.filename,
                    version.refs,  item.summary, item.links};
  ticket.versions.push_back(std::move(version));
  return ticket;
}

void addVersion(Ticket& ticket, Version record, const std::vector<std::string>& keepKinds,
                Pictures& pictures) {
  const TicketVersion& old = ticket.newest();
  const std::string number = "v" + std::to_string(record.n);
  TicketVersion next;
  Int index = 0;
  for (std::size_t i = 0; i < old.proofs.size(); ++i) {
    ProofPage page{old.proofs[i].sent, old.proofs[i].sent, {}};
    const auto kept = [&](const Planted& planted) {
      return std::ranges::find(keepKinds, kindOf(planted.defect)) != keepKinds.end();
    };
    if (std::ranges::any_of(old.proofs[i].planted, kept)) page = old.proofs[i];
    Page entry = pageRecord(index, page.proof, "files/" + ticket.item.id + "/" + number,
                            "thumbs/" + ticket.item.id + "/" + number, pictures);
    const Page& before = old.pages[i];
    (*entry.refs)["previous"] = {before.i, before.label, before.img, before.px, 0.99, "text"};
    next.pages.push_back(std::move(entry));
    next.proofs.push_back(std::move(page));
    ++index;
  }
  record.page_count = index;
  next.refs = {{"previous", old.record.filename, std::nullopt, index, index, std::nullopt}};
  next.origin = {ticket.item.supplier, record.by,        record.at, record.filename, next.refs,
                 std::nullopt,         ticket.item.links};
  ticket.item.version = record.n;
  ticket.item.page_count = index;
  ticket.item.refs = next.refs;
  if (!next.pages.empty()) ticket.item.thumb = next.pages.front().thumb;
  next.record = std::move(record);
  ticket.versions.push_back(std::move(next));
}

std::vector<Finding> findingsAgainstPrevious(const Ticket& ticket) {
  const TicketVersion& now = ticket.newest();
  const TicketVersion& old = ticket.versions[ticket.versions.size() - 2];
  std::vector<Finding> findings;
  for (std::size_t i = 0; i < now.proofs.size(); ++i) {
    for (const Planted& planted : old.proofs[i].planted) {
      const auto sameKind = [&](const Planted& kept) { return kept.defect == planted.defect; };
      if (std::ranges::any_of(now.proofs[i].planted, sameKind)) continue;
      // Seen from the revision, the repair is the change: our wording is the new one.
      Finding finding = located(planted, now.proofs[i].proof, old.proofs[i].proof);
      std::swap(finding.before, finding.after);
      finding.page = static_cast<Int>(i);
      finding.against = "previous";
      finding.severity = "low";
      finding.kind = "expected";
      finding.state = "expected";
      finding.title = "Repaired: " + planted.title;
      finding.detail = "It is as in our file again.";
      findings.push_back(std::move(finding));
    }
    for (const Planted& kept : now.proofs[i].planted) {
      const auto same = [&](const Planted& was) { return was.defect == kept.defect; };
      Finding finding = located(kept, now.proofs[i].proof, old.proofs[i].proof);
      finding.page = static_cast<Int>(i);
      finding.against = "previous";
      finding.severity = "medium";
      finding.state = "open";
      if (std::ranges::any_of(old.proofs[i].planted, same)) {
        finding.title = "Not repaired: " + kept.title;
        finding.before.reset();  // the version before reads the same
      }
      findings.push_back(std::move(finding));
    }
  }
  number(findings, ticket.item.id, now.record.n);
  return findings;
}

}  // namespace vellix::demo
