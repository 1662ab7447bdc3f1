// A ticket of somebody's own proof.
#pragma once

#include <expected>
#include <string>
#include <vector>

#include "own_folder.hpp"
#include "pictures.hpp"
#include "ticket.hpp"
#include "version_check.hpp"

namespace vellix::demo {

// A new one, its newest version waiting for a check. A proof that cannot be opened at all, or is
// locked, has none: what to do is said in a sentence. One that is damaged has a version that
// failed.
std::expected<Ticket, std::string> ownTicket(const GivenProof& given, double now, OwnFolder& folder,
                                             Pictures& pictures);

// A file as a version is made of it.
struct Lying {
  std::string path;  // where it was found
  std::string copy;  // where it is read
  std::shared_ptr<const PdfFile> pdf;
  PdfReading facts;
};
// Where to look for a ticket's next version: its proof's path, and the newest that came from there.
struct Watched {
  std::string ticket;
  std::string path;
  std::string copy;
  std::string stamp;
};
Watched watchedOf(const Ticket& ticket);
// What lies there by now, none when that is nothing new; the sentence as above. Takes as long as
// copying and reading the file does; any thread, but one at a time for a folder.
struct Came {
  std::string ticket;
  std::expected<std::optional<Lying>, std::string> file;
};
Came lookAt(const Watched& watched, OwnFolder& folder);
// As a further version, waiting for a check.
void addVersion(Ticket& ticket, Lying file, double now, Pictures& pictures);

// A path may be any bytes; what is told is text.
std::string asText(const std::string& bytes);

// The same for every proof at one path, on any day.
std::string ownId(const GivenProof& given);

// Changes when other files lie where the ticket's references are.
std::string referencesTag(const Ticket& ticket);

// Why it is not compared with the FBC, in a sentence; empty where it is, or there is none.
std::string whyWithoutFbc(const Ticket& ticket, const TicketVersion& version);

// All that a version can be compared with; what is missing is told at the version's own reference,
// and gathered in `troubles` in sentences.
std::vector<CheckReference> referencesOf(const Ticket& ticket, TicketVersion& version,
                                         std::vector<std::string>& troubles);

// Enters what the check read of one of them. False when it has no pages to compare with, which is
// told as above.
bool showFacts(TicketVersion& version, const std::string& role, const PdfReading& facts,
               std::vector<std::string>& troubles);

// Enters the partners that the check found, and their pictures.
void showPartners(const Ticket& ticket, TicketVersion& version, const CheckReference& reference,
                  const PdfReading& facts, const Partners& partners, Pictures& pictures);

}  // namespace vellix::demo
