// A Store with everything it stands on, all of it under the test's hand.
#pragma once

#include "gateway/api.hpp"
#include "gateway/sign_in.hpp"
#include "shell/waiting_browser.hpp"
#include "store/store.hpp"
#include "support/fakes.hpp"
#include "support/scripted_http.hpp"
#include "support/virtual_time.hpp"

namespace vellix {

struct Desk {
  // With a token the Store comes up signed in.
  explicit Desk(std::optional<std::string> token = "token-1") { tokens.item = std::move(token); }

  VirtualTime time;
  FakeDefaults defaults;
  FakeTokenStore tokens;
  FakeWindows windows;
  FakeMachine machine;
  FakeOpener opener;
  FakeClipboard clipboard;
  FakeLocalFiles files{time};
  FakeUuids uuids;
  FakePrefetch pictures;
  FakeBadge badge;
  FakeCalendar calendar;
  ScriptedHttp http{time};
  API api{http, tokens, defaults};
  WaitingBrowser browser{time, opener};
  SignIn signIn{api, {defaults, machine, browser, uuids}};
  Prefs prefs{time, defaults};
  TaskScope tasks;

  // Built at first use, so a test can set the ports up before.
  Store& store() {
    if (!store_) {
      store_.emplace(
          api, signIn, prefs,
          Store::Ports{time, defaults, windows, pictures, badge, files, clipboard, opener});
    }
    return *store_;
  }
  void endStore() { store_.reset(); }
  std::optional<Toast> toast() { return store().toast(); }
  std::string toastText() { return toast() ? toast()->text : std::string{}; }

 private:
  std::optional<Store> store_;
};

// A ticket, a board and a detail with the required fields filled in.
inline FileItem ticketOf(std::string id, std::string status = "new") {
  FileItem file;
  file.id = std::move(id);
  file.status = std::move(status);
  return file;
}
inline BoardState boardOf(std::vector<FileItem> files) {
  BoardState board;
  board.rev = 1;
  board.me = {"renny@tessarine.example", "Renny Vale"};
  board.users = {{.email = "renny@tessarine.example", .name = "Renny Vale"},
                 {.email = "jorvas@tessarine.example", .name = "Jorvas Lind"}};
  board.files = std::move(files);
  return board;
}
inline Finding findingOf(std::string id, Int page = 0, std::string severity = "high") {
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
template <class T>
std::string jsonOf(const T& value) {
  return encode(value).value();
}

}  // namespace vellix
