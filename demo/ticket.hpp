// A ticket as the service keeps it, with what its pages were made from.
#pragma once

#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "defects.hpp"
#include "given_proof.hpp"
#include "pdf_file.hpp"
#include "records/records.hpp"

namespace vellix::demo {

// One page of one version: what we sent, what came back, and what was planted between the two.
struct ProofPage {
  PageArt sent;
  PageArt proof;
  std::vector<Planted> planted;
};

struct TicketVersion {
  Version record;
  std::vector<ProofPage> proofs;       // of a version that the demo set itself
  std::shared_ptr<const PdfFile> pdf;  // of one that was uploaded, or is somebody's own
  std::string path;                    // where that one lies; empty for one in memory alone
  std::string stamp;                   // changes with what lies there
  bool unchecked = false;              // it waits for a check, or for the end of one
  std::string against;                 // tells which files it was checked against
  std::string lost;                    // what became of its PDF, where it lies there no longer
  // What a later version is checked against; not valid before there is one.
  std::shared_future<std::shared_ptr<const PdfFile>> printed;
  std::shared_future<PdfReading> reading;
  std::vector<Page> pages;
  std::vector<Finding> findings;
  std::vector<Ref> refs;
  Origin origin;
};

struct StoredNote {
  Note note;
  Int version = 1;
};

struct Ticket {
  FileItem item;  // what does not follow from the rest: see State for counts and tally
  std::vector<TicketVersion> versions;
  std::vector<StoredNote> notes;
  std::optional<Approval> approval;
  bool waiting = false;                  // not on the board before a sync brings it
  std::optional<GivenProof> given = {};  // of somebody's own proof: what all its versions came from

  TicketVersion& newest() { return versions.back(); }
  const TicketVersion& newest() const { return versions.back(); }
};

// Null when there is none of that number, or no ticket.
inline TicketVersion* versionOf(Ticket* ticket, Int number) {
  if (ticket == nullptr) return nullptr;
  for (TicketVersion& version : ticket->versions) {
    if (version.record.n == number) return &version;
  }
  return nullptr;
}

// The newest version with pages ahead of that one; null when there is none.
inline const TicketVersion* newestBefore(const Ticket& ticket, Int number) {
  const TicketVersion* found = nullptr;
  for (const TicketVersion& version : ticket.versions) {
    if (version.record.n < number && !version.pages.empty()) found = &version;
  }
  return found;
}

}  // namespace vellix::demo
