// People who are tagged in a note. A note holds their addresses.
#pragma once

#include <string>
#include <vector>

#include "store/store.hpp"

namespace vellix {

struct TagChipView {
  std::string key;    // the address
  std::string name;   // the address when the board knows no name
  std::string color;  // "#rrggbb", or empty for the muted default
  bool operator==(const TagChipView&) const = default;
};
BOOST_DESCRIBE_STRUCT(TagChipView, (), (key, name, color))

// A line of the menu that tags people, which stays open for more than one.
struct TagEntryView {
  std::string key;  // the address
  std::string text;
  bool checked = false;
  std::string help;
  bool enabled = true;
  bool stays = true;
  bool operator==(const TagEntryView&) const = default;
};
BOOST_DESCRIBE_STRUCT(TagEntryView, (), (key, text, checked, help, enabled, stays))

std::vector<TagChipView> tagChips(const Store& store, const std::vector<std::string>& tags);
// Everybody but the person signed in.
std::vector<TagEntryView> tagEntries(const Store& store, const std::vector<std::string>& tags);
// Tags who is not tagged, at the end, and no longer who is.
std::vector<std::string> withTagPressed(std::vector<std::string> tags, const std::string& email);

}  // namespace vellix
