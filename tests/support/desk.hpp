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
  explicit Desk(std::optional<std::string> token = "token-1");
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk();

  VirtualTime time;
  FakeDefaults defaults;
  FakeTokenStore tokens;
  FakeWindows windows;
  FakeMachine machine;
  FakeOpener opener;
  FakeClipboard clipboard;
  FakeLocalFiles files{time};
  FakeDownloads downloads{time};
  FakePhotos photos{time};
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
  Store& store();
  void endStore();
  std::optional<Toast> toast();
  std::string toastText();

 private:
  std::optional<Store> store_;
};

// A ticket, a board and a detail with the required fields filled in.
FileItem ticketOf(std::string id, std::string status = "new");
BoardState boardOf(std::vector<FileItem> files);
Finding findingOf(std::string id, Int page = 0, std::string severity = "high");
template <class T>
std::string jsonOf(const T& value) {
  return encode(value).value();
}

}  // namespace vellix
