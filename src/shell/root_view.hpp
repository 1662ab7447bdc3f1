// What fills the window.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

struct RootViewValue {
  bool signedIn = false;
  std::string content;  // "profile", "multi", "file", "empty" or "loading"
  std::string person;   // whose profile it is
  std::string file;     // id of the ticket on show, or behind the profile
  std::string headline;
  std::string line;
  bool offline = false;  // the banner stands
  std::string problem;
  bool operator==(const RootViewValue&) const = default;
};
BOOST_DESCRIBE_STRUCT(RootViewValue, (),
                      (signedIn, content, person, file, headline, line, offline, problem))

RootViewValue rootView(const Store& store);

// The toast over the window; without an id when there is none.
struct ToastShown {
  std::string id;
  std::string text;
  std::string undoLabel;  // empty where nothing can be undone
  bool operator==(const ToastShown&) const = default;
};
BOOST_DESCRIBE_STRUCT(ToastShown, (), (id, text, undoLabel))
ToastShown toastShown(const Store& store);

// Logical pixels, by the width of the window.
double sidebarWidth(double windowWidth);

}  // namespace vellix
