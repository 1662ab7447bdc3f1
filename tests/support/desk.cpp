#include "support/desk.hpp"

namespace vellix {

Desk::Desk(std::optional<std::string> token) { tokens.item = std::move(token); }

Desk::~Desk() = default;

Store& Desk::store() {
  if (!store_) {
    store_.emplace(api, signIn, prefs,
                   Store::Ports{time, defaults, windows, pictures, badge, files, clipboard, opener,
                                downloads, photos});
  }
  return *store_;
}

void Desk::endStore() { store_.reset(); }

std::optional<Toast> Desk::toast() { return store().toast(); }

std::string Desk::toastText() { return toast() ? toast()->text : std::string{}; }

FileItem ticketOf(std::string id, std::string status) {
  FileItem file;
  file.id = std::move(id);
  file.status = std::move(status);
  return file;
}

BoardState boardOf(std::vector<FileItem> files) {
  BoardState board;
  board.rev = 1;
  board.me = {"renny@tessarine.example", "Renny Vale"};
  board.users = {{.email = "renny@tessarine.example", .name = "Renny Vale"},
                 {.email = "jorvas@tessarine.example", .name = "Jorvas Lind"}};
  board.files = std::move(files);
  return board;
}

Finding findingOf(std::string id, Int page, std::string severity) {
  Finding finding;
  finding.id = std::move(id);
  finding.file_id = "t1";
  finding.page = page;
  finding.against = "submitted";
  finding.kind = "words";
  finding.severity = std::move(severity);
  finding.title = "One word changed";
  finding.box = {0.1, 0.1, 0.2, 0.1};
  finding.state = "open";
  return finding;
}

}  // namespace vellix
