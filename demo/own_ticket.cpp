#include "own_ticket.hpp"

#include <QString>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "clock.hpp"
#include "digest.hpp"
#include "pdf_pages.hpp"

namespace vellix::demo {
namespace {

namespace fs = std::filesystem;

// Nobody's address: it is the name that is shown.
constexpr const char* kSupplier = "supplier";

std::string nameOf(const std::string& path) { return asText(fs::path(path).filename().string()); }

// Read at `copy` and called by its path.
std::expected<Lying, std::string> opened(const std::string& path, const std::string& copy) {
  Lying file{path, copy, PdfFile::at(copy), {}};
  if (!file.pdf) return std::unexpected(asText(path) + " cannot be opened.");
  file.facts = file.pdf->facts();
  if (file.facts.trouble == PdfTrouble::locked) {
    return std::unexpected(asText(path) +
                           " is locked with a password. Save a copy that opens without.");
  }
  if (file.facts.trouble == PdfTrouble::unread) {
    return std::unexpected(asText(path) + " could not be read just now. Try again.");
  }
  return file;
}

// The small ones first: they are all in sight at once.
void drawAhead(const TicketVersion& version, Pictures& pictures) {
  std::vector<std::string> keys;
  keys.reserve(2 * version.pages.size());
  for (const Page& page : version.pages) keys.push_back(page.thumb.value_or(""));
  for (const Page& page : version.pages) keys.push_back(page.img.value_or(""));
  pictures.drawAhead(keys);
}

TicketVersion versionOf(const Ticket& ticket, Lying file, double now, Pictures& pictures) {
  TicketVersion version;
  version.pdf = std::move(file.pdf);
  version.path = file.copy;
  // A copy's name tells what it holds.
  if (!OwnFolder::holds(file.copy)) version.stamp = version.pdf->tag();
  Version& record = version.record;
  record.n = static_cast<Int>(ticket.versions.size()) + 1;
  record.kind = ticket.versions.empty() ? "proof" : "revision";
  record.filename = nameOf(file.path);
  record.by = kSupplier;
  record.at = now;
  record.size = static_cast<Int>(version.pdf->size());
  record.status = "checking";
  version.origin = {std::nullopt, std::nullopt, now,         record.filename,
                    std::nullopt, std::nullopt, std::nullopt};
  if (file.facts.trouble != PdfTrouble::none) {
    record.status = "failed";
    record.summary = excuseFor(file.facts);
    version.origin.summary = record.summary;
    return version;
  }
  version.unchecked = true;
  const auto& pages = file.facts.pages;
  record.page_count = static_cast<Int>(pages.size());
  const std::string keys = ticket.item.id + "/v" + std::to_string(record.n);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    version.pages.push_back(pageRecord(version.pdf, pages[i], static_cast<int>(i), keys, pictures));
  }
  drawAhead(version, pictures);
  return version;
}

void add(Ticket& ticket, TicketVersion version) {
  FileItem& item = ticket.item;
  item.version = version.record.n;
  item.page_count = version.record.page_count;
  item.summary = version.record.summary;
  item.filename = version.record.filename;
  item.refs.reset();
  if (!version.pages.empty()) item.thumb = version.pages.front().thumb;
  ticket.versions.push_back(std::move(version));
}

Ref& refOf(TicketVersion& version, const std::string& role, const std::string& name) {
  const auto found = std::ranges::find(version.refs, role, &Ref::role);
  if (found != version.refs.end()) return *found;
  Ref& made = version.refs.emplace_back();
  made.role = role;
  if (!name.empty()) made.name = name;
  return made;
}

void leaveOut(Ref& ref, const std::string& why, std::vector<std::string>& troubles) {
  ref.note = ref.name.value_or("The file") + " " + why;
  ref.page_count.reset();
  ref.matched.reset();
  troubles.push_back(*ref.note + " Nothing was compared with it.");
}

}  // namespace

std::string asText(const std::string& bytes) { return QString::fromUtf8(bytes).toStdString(); }

std::string ownId(const GivenProof& given) {
  std::string id;
  for (const char letter : fs::path(given.proof).stem().string()) {
    const bool plain = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    const bool capital = letter >= 'A' && letter <= 'Z';
    if (plain || capital) {
      id += static_cast<char>(capital ? letter - 'A' + 'a' : letter);
    } else if (!id.empty() && id.back() != '-') {
      id += '-';
    }
    if (id.size() >= 40) break;
  }
  if (!id.empty() && id.back() != '-') id += '-';
  return id + digestText(fs::absolute(given.proof).lexically_normal().string()).substr(0, 8);
}

std::expected<Ticket, std::string> ownTicket(const GivenProof& given, double now, OwnFolder& folder,
                                             Pictures& pictures) {
  Ticket ticket;
  ticket.given = given;
  FileItem& item = ticket.item;
  item.id = ownId(given);
  item.key = item.id;
  item.title = asText(given.title.empty() ? fs::path(given.proof).stem().string() : given.title);
  item.kind = "text";
  item.status = "new";
  item.track = "new_title";
  item.received = now;
  item.created = now;
  item.due = given.due.value_or(now + 48 * kHour);
  item.rev = 1;
  if (!given.previous.empty()) {
    auto file = opened(given.previous, folder.copyOf(given.previous));
    if (!file) return std::unexpected(file.error());
    TicketVersion before = versionOf(ticket, *std::move(file), now, pictures);
    if (before.record.summary) {
      return std::unexpected(asText(given.previous) + ": " + *before.record.summary);
    }
    // It is there to be compared with.
    before.unchecked = false;
    before.record.status = "done";
    before.record.summary = "The proof before. It is here to compare with.";
    before.origin.summary = before.record.summary;
    add(ticket, std::move(before));
  }
  for (const std::string& path : {given.sent, given.fbc}) {
    if (path.empty()) continue;
    if (auto file = opened(path, path); !file) return std::unexpected(file.error());
  }
  auto proof = opened(given.proof, folder.copyOf(given.proof));
  if (!proof) return std::unexpected(proof.error());
  addVersion(ticket, *std::move(proof), now, pictures);
  return ticket;
}

Watched watchedOf(const Ticket& ticket) {
  const std::string& path = ticket.given->proof;
  const auto cameFromThere = [&](const TicketVersion& version) {
    return version.path == path || OwnFolder::holds(version.path);
  };
  const auto last = std::find_if(ticket.versions.rbegin(), ticket.versions.rend(), cameFromThere);
  Watched watched{ticket.item.id, path, {}, {}};
  if (last == ticket.versions.rend()) return watched;
  watched.copy = last->path;
  watched.stamp = last->stamp;
  return watched;
}

Came lookAt(const Watched& watched, OwnFolder& folder) {
  const std::string copy = folder.copyOf(watched.path);
  const auto there = PdfFile::at(copy);
  if (there && watched.copy == copy && (watched.stamp.empty() || watched.stamp == there->tag())) {
    return {watched.ticket, std::nullopt};
  }
  return {watched.ticket, opened(watched.path, copy)};
}

void addVersion(Ticket& ticket, Lying file, double now, Pictures& pictures) {
  add(ticket, versionOf(ticket, std::move(file), now, pictures));
}

std::string referencesTag(const Ticket& ticket) {
  std::string tag;
  for (const std::string& path : {ticket.given->sent, ticket.given->fbc}) {
    const auto file = path.empty() ? nullptr : PdfFile::at(path);
    tag += path + " " + (file ? file->tag() : std::string()) + "\n";
  }
  return digestText(tag);
}

std::string whyWithoutFbc(const Ticket& ticket, const TicketVersion& version) {
  if (ticket.given->fbc.empty() || newestBefore(ticket, version.record.n) == nullptr) return {};
  return nameOf(ticket.given->fbc) +
         " was not compared: a revision is shown beside the version before it, where the FBC has "
         "no place.";
}

std::vector<CheckReference> referencesOf(const Ticket& ticket, TicketVersion& version,
                                         std::vector<std::string>& troubles) {
  std::vector<CheckReference> references;
  const auto offer = [&](const char* role, std::string called, const std::string& name,
                         const std::shared_ptr<const PdfFile>& pdf) {
    Ref& ref = refOf(version, role, name);
    if (!pdf) {
      leaveOut(ref, "cannot be opened any more.", troubles);
      return;
    }
    if (!ref.matched) ref.note = "Its pages are still being matched.";
    references.push_back({role, std::move(called), pdf});
  };
  if (const std::string& sent = ticket.given->sent; !sent.empty()) {
    offer("submitted", "our file", nameOf(sent), PdfFile::at(sent));
  }
  const TicketVersion* before = newestBefore(ticket, version.record.n);
  if (before != nullptr) {
    offer("previous", "v" + std::to_string(before->record.n),
          before->record.filename.value_or("The version before"), before->pdf);
  }
  const std::string& fbc = ticket.given->fbc;
  if (const std::string why = whyWithoutFbc(ticket, version); !why.empty()) {
    Ref& ref = refOf(version, "fbc", nameOf(fbc));
    ref.note = why;
    ref.page_count.reset();
    ref.matched.reset();
    troubles.push_back(why);
  } else if (!fbc.empty()) {
    offer("fbc", "the FBC", nameOf(fbc), PdfFile::at(fbc));
  }
  for (const auto& [role, path] :
       {std::pair{"submitted", ticket.given->sent}, std::pair{"fbc", ticket.given->fbc}}) {
    if (path.empty()) refOf(version, role, "").note = "None was given to compare with.";
  }
  return references;
}

bool showFacts(TicketVersion& version, const std::string& role, const PdfReading& facts,
               std::vector<std::string>& troubles) {
  Ref& ref = refOf(version, role, "");
  if (facts.trouble == PdfTrouble::none) {
    ref.page_count = static_cast<Int>(facts.pages.size());
    return true;
  }
  // Once more with the next sync.
  if (facts.trouble == PdfTrouble::unread) version.against.clear();
  leaveOut(ref,
           facts.trouble == PdfTrouble::tooLong  ? "has too many pages."
           : facts.trouble == PdfTrouble::locked ? "is locked with a password."
           : facts.trouble == PdfTrouble::unread ? "could not be read just now."
                                                 : "did not open.",
           troubles);
  return false;
}

void showPartners(const Ticket& ticket, TicketVersion& version, const CheckReference& reference,
                  const PdfReading& facts, const Partners& partners, Pictures& pictures) {
  const std::string folder =
      ticket.item.id + "/v" + std::to_string(version.record.n) + "/" + reference.role;
  Int matched = 0;
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < std::min(partners.size(), version.pages.size()); ++i) {
    auto& refs = version.pages[i].refs;
    if (!refs) refs.emplace();
    refs->erase(reference.role);
    if (!partners[i]) continue;
    ++matched;
    (*refs)[reference.role] =
        refRecord(reference.pdf, facts.pages[partners[i]->page], *partners[i], folder, pictures);
    keys.push_back((*refs)[reference.role].img.value_or(""));
    // A revision is shown beside the version before it; where that has no such page, beside ours.
    if (version.record.n > 1 && reference.role == "submitted" && !refs->contains("previous")) {
      RefPage& ours = (*refs)["previous"] = (*refs)[reference.role];
      ours.label = std::to_string(partners[i]->page + 1) + " of our file";
    }
  }
  pictures.drawAhead(keys);
  Ref& ref = refOf(version, reference.role, "");
  ref.matched = matched;
  ref.note.reset();
  if (matched < static_cast<Int>(version.pages.size())) {
    ref.note = ref.name.value_or("The file") + " has no page like this one.";
  }
}

}  // namespace vellix::demo
