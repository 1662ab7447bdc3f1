// The reviewers: their photos, and what the colleague does.
#include <QBuffer>
#include <QImageReader>
#include <algorithm>

#include "body.hpp"
#include "check/compared.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostPhoto = 4'000'000;
constexpr int kMostAcross = 2048;
constexpr double kColleague = 50'000;

Done refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

}  // namespace

Done State::setPhoto(std::string bytes, const std::string& by) {
  if (bytes.size() > kMostPhoto) return refuse(413, "That photo is too big.");
  QBuffer buffer;
  buffer.setData(bytes.data(), static_cast<int>(bytes.size()));
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, "jpeg");
  const QSize size = reader.size();
  if (size.width() > kMostAcross || size.height() > kMostAcross) {
    return refuse(413, "That photo is too big.");
  }
  // A decoder makes do with the half of a picture; where its end is missing it was cut off.
  const bool whole =
      bytes.find("\xFF\xD9", bytes.size() - std::min<std::size_t>(bytes.size(), 64)) !=
      std::string::npos;
  if (!size.isValid() || !whole || reader.read().isNull()) return refuse(400, "A photo is a JPEG.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->photo = nextId("photos/") + ".jpg";
  pictures_.put(*user->photo, std::move(bytes));
  record(nullptr, "photo", by, "Changed their photo");
  return {};
}

Done State::addPerson(const std::string& email, const std::string& name, bool counted) {
  if (email.find('@') == std::string::npos || name.empty()) {
    return refuse(400, "A person needs an address and a name.");
  }
  if (std::ranges::find(users_, email, &Person::email) != users_.end()) {
    return refuse(400, "That person is here already.");
  }
  users_.push_back({.email = email, .name = name, .color = "#c2410c"});
  if (counted) {
    uncounted_.erase(email);
  } else {
    uncounted_.insert(email);
  }
  touch(nullptr);
  return {};
}

Done State::removePerson(const std::string& email) {
  if (std::erase_if(users_, [&](const Person& user) { return user.email == email; }) == 0) {
    return refuse(404, "Nobody here has that address.");
  }
  std::erase_if(tokens_, [&](const auto& token) { return token.second == email; });
  touch(nullptr);
  return {};
}

Done State::colleagueActs(const std::string& fileId, const std::string& text, const std::string& by,
                          const std::vector<std::string>& tags) {
  Ticket* ticket = find(fileId);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->last_seen = now_;
  Note note;
  note.id = nextId("note-");
  note.file_id = fileId;
  note.page = 0;
  note.text = text;
  if (!tags.empty()) note.tags = tags;
  note.by = by;
  note.at = now_;
  ticket->notes.push_back({note, ticket->newest().record.n});
  record(ticket, "comment", by, text, 0);
  return {};
}

// Decides an open finding of the reprints now and then, or leaves a word about one.
void State::scheduleColleague() {
  later(kColleague, [this] {
    std::vector<std::pair<std::string, std::string>> open;  // ticket, finding
    for (const Ticket& ticket : tickets_) {
      if (ticket.waiting || ticket.item.assignee != kJorvas) continue;
      for (const Finding& finding : ticket.newest().findings) {
        if (finding.state == "open" && isReal(finding))
          open.emplace_back(ticket.item.id, finding.id);
      }
    }
    if (!open.empty()) {
      const auto& [ticket, finding] = open[colleague_() % open.size()];
      if (colleague_() % 2 == 0) {
        [[maybe_unused]] const Done said =
            colleagueActs(ticket, "I’ll ask the supplier about this one.", kJorvas);
      } else {
        [[maybe_unused]] const Done decided = setFinding(finding, "issue", kJorvas);
      }
    }
    scheduleColleague();
  });
}

}  // namespace vellix::demo
