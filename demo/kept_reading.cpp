#include "kept_reading.hpp"

#include <algorithm>

#include "body.hpp"

namespace vellix::demo {

Kept KeptReading::ticket(const std::string& id, Ticket& ticket) const {
  auto detail = record<FileDetail>(ticketKey(id));
  if (!detail) return std::unexpected(detail.error());
  ticket.item = std::move(detail->file);
  ticket.approval = std::move(detail->approval);
  if (shelf_.find(ticketKey(id) + "/given") != nullptr) {
    const auto given = record<Json>(ticketKey(id) + "/given");
    if (!given) return std::unexpected(given.error());
    const auto path = [&](const char* key) {
      return pathOfEscaped(textAt(*given, key).value_or(""));
    };
    ticket.given = GivenProof{path("proof"),
                              path("sent"),
                              path("previous"),
                              path("fbc"),
                              textAt(*given, "title").value_or(""),
                              numberAt(*given, "due")};
  }
  for (std::size_t n = 1; shelf_.find(versionKey(id, static_cast<Int>(n))) != nullptr; ++n) {
    if (ticket.versions.size() < n) ticket.versions.emplace_back();
    ticket.versions[n - 1].record.n = static_cast<Int>(n);
    if (Kept done = version(id, ticket.versions[n - 1]); !done) return done;
  }
  if (ticket.versions.empty()) {
    return std::unexpected(unreadable(ticketKey(id), "it has no version"));
  }
  ticket.notes.clear();
  return each<FileDetail>(ticketKey(id) + "/notes/", [&](const std::string&, FileDetail&& part) {
    for (Note& note : part.comments) {
      ticket.notes.push_back({std::move(note), part.version.value_or(1)});
    }
  });
}

Kept KeptReading::version(const std::string& id, TicketVersion& version) const {
  const std::string key = versionKey(id, version.record.n);
  auto detail = record<FileDetail>(key);
  if (!detail) return std::unexpected(detail.error());
  if (!detail->versions || detail->versions->size() != 1) {
    return std::unexpected(unreadable(key, "it is no version"));
  }
  version.record = std::move(detail->versions->front());
  version.refs = std::move(detail->file.refs).value_or(std::vector<Ref>{});
  version.origin = std::move(detail->origin).value_or(Origin{});
  const auto file = record<Json>(key + "/file");
  if (!file) return std::unexpected(file.error());
  version.path = pathOfEscaped(textAt(*file, "path").value_or(""));
  // A file of the shelf's own is kept by its name, wherever the folder lies by now.
  if (!version.path.empty() && version.path.find('/') == std::string::npos) {
    version.path = shelf_.pathOf(version.path);
  }
  version.stamp = textAt(*file, "stamp").value_or("");
  version.unchecked = flagAt(*file, "unchecked").value_or(false);
  version.against = textAt(*file, "against").value_or("");
  version.findings.clear();
  Kept done = each<FileDetail>(key + "/findings/", [&](const std::string&, FileDetail&& part) {
    std::ranges::move(part.findings, std::back_inserter(version.findings));
  });
  if (!done || !version.proofs.empty()) return done;
  version.pages.clear();
  return each<FileDetail>(key + "/pages/", [&](const std::string&, FileDetail&& part) {
    auto pages = std::move(part.file.pages).value_or(std::vector<Page>{});
    std::ranges::move(pages, std::back_inserter(version.pages));
  });
}

}  // namespace vellix::demo
