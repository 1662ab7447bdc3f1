// The sync of the supplier mail: asked for by a button, or seen at work.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

struct SyncCardView {
  bool working = false;  // a pill and "Stop" stand in the place of the button
  bool busy = false;     // the button's request is on its way
  std::string text;      // of the pill, as what follows
  std::string icon;
  std::string tone;
  bool small = false;
  bool spinning = false;
  bool stopping = false;  // the request to stop is on its way
  bool operator==(const SyncCardView&) const = default;
};
BOOST_DESCRIBE_STRUCT(SyncCardView, (),
                      (working, busy, text, icon, tone, small, spinning, stopping))

SyncCardView syncCard(const Store& store);

// Not while one waits, is at work or is asked for. One that was given up can be asked for anew.
bool canSync(const Store& store);
void askForSync(Store& store);

// Stops the sync that the board tells of, if there is one that is not being stopped.
void stopSync(Store& store);

}  // namespace vellix
