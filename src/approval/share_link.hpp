// The one link that opens a ticket for colleagues: whether it is on, what it allows, and what is
// done with it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pieces/choice.hpp"
#include "store/store.hpp"

namespace vellix {

struct ShareButtonView {
  std::string label;
  std::string icon;
  bool operator==(const ShareButtonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShareButtonView, (), (label, icon))

ShareButtonView shareButton(const FileItem& file);

// A new link takes two presses, since the old one is lost. The second is meant for the link that
// was there at the first, and for no other: it ends with that link.
struct ShareRenewal {
  std::string sureOf;  // the link that was; empty before the first press
};

struct SharePopoverView {
  bool here = false;  // the ticket is on the board
  bool on = false;
  std::string access;  // the key of a level, or what else the service calls it
  std::vector<ChoiceView> levels;
  std::string allows;  // what the level lets people do
  std::string url;     // the link; empty while there is none to hand on
  std::string notionHelp;
  std::string renew;    // on the button for a new one
  std::string warning;  // under it, before the second press
  bool busy = false;    // a change is on its way
  bool operator==(const SharePopoverView&) const = default;
};
BOOST_DESCRIBE_STRUCT(SharePopoverView, (),
                      (here, on, access, levels, allows, url, notionHelp, renew, warning, busy))

// Of the ticket as the board has it now.
SharePopoverView sharePopover(const Store& store, const std::string& ticket,
                              const ShareRenewal& renewal);

// What the popover's controls do. While a change is on its way they do nothing, nor to a ticket
// that has gone.
void switchShare(Store& store, const std::string& ticket, bool on);
void chooseAccess(Store& store, const std::string& ticket, std::string_view access);
void pressRenew(Store& store, const std::string& ticket, ShareRenewal& renewal);
// The link that the first press was made for may be off, or another by now.
void follow(ShareRenewal& renewal, const Store& store, const std::string& ticket);
// With the link, as long as it is on.
void copyShareLink(Store& store, const std::string& ticket);
void copyShareForNotion(Store& store, const std::string& ticket);
void openShareLink(Store& store, const std::string& ticket);

}  // namespace vellix
