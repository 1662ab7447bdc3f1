// What can be done with a ticket's round of approval, and what a press does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/store.hpp"

namespace vellix {

struct ApprovalButtonView {
  std::string key;
  std::string label;
  std::string icon;
  std::string help;     // empty for none
  std::string opens;    // "send" or "upload", a sheet; else empty
  std::string url;      // what it leads to; else empty
  bool quiet = false;   // not the one that is most likely wanted
  bool enabled = true;  // not while one like it is on its way
  bool operator==(const ApprovalButtonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ApprovalButtonView, (), (key, label, icon, help, opens, url, quiet, enabled))

// How an embedded link is used, wherever one is copied.
inline constexpr std::string_view kNotionHelp =
    "Paste it in a Notion task and pick Embed. It shows the pages to compare and where it stands, "
    "to anyone with the link.";

// `detail` is null until it is here.
std::vector<ApprovalButtonView> approvalButtons(const Store& store, const FileItem& file,
                                                const FileDetail* detail);

// Does what the button does for the ticket on show, if it is there still and enabled. What opens
// a sheet or an address is its view's to open.
void pressApprovalButton(Store& store, std::string_view key);

}  // namespace vellix
