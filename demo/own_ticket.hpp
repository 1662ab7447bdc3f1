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

// What lies at the ticket's path by now, as a further version, if it is another file than the
// newest that came from there. False when there is nothing new. The sentence as above.
std::expected<bool, std::string> takeAnew(Ticket& ticket, double now, OwnFolder& folder,
                                          Pictures& pictures);

// The same for every proof at one path, on any day.
std::string ownId(const GivenProof& given);

// Changes when other files lie where the ticket's references are.
std::string referencesTag(const Ticket& ticket);

// All that a version can be compared with, read from the disk at once; what is missing or does not
// open is told at the version's own reference.
// `troubles` gathers that too, in sentences.
std::vector<CheckReference> referencesOf(const Ticket& ticket, TicketVersion& version,
                                         std::vector<std::string>& troubles);

// Enters the partners that the check found, and their pictures.
void showPartners(const Ticket& ticket, TicketVersion& version, const CheckReference& reference,
                  const Partners& partners, Pictures& pictures);

}  // namespace vellix::demo
