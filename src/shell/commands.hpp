// The menu bar: every command with its words, its shortcut and when it is to be had.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/store.hpp"

namespace vellix {

// One line of a menu. A separator has no key.
struct CommandView {
  std::string key;
  std::string text;
  std::string shortcut;  // portable, "Ctrl+Shift+S": on the Mac Ctrl is the Command key
  bool enabled = true;
  bool operator==(const CommandView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CommandView, (), (key, text, shortcut, enabled))

struct MenuView {
  std::string title;
  std::vector<CommandView> entries;
  bool operator==(const MenuView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MenuView, (), (title, entries))

// The keys of a command that the window listens for, whatever shows the menus.
struct ShortcutView {
  std::string key;                     // of the command
  std::vector<std::string> sequences;  // portable
  bool enabled = true;
  bool repeats = false;     // held down, it goes on
  bool everywhere = false;  // also in a window that does not show what the others act on
  bool listed = true;       // stands in a menu
  bool operator==(const ShortcutView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShortcutView, (), (key, sequences, enabled, repeats, everywhere, listed))

// While something stands in front of everything (`covered`), nothing but the end of the program is
// to be had.

// The application's own menu first.
std::vector<MenuView> menuBar(const Store& store, bool covered = false);
// Of every command that has one.
std::vector<ShortcutView> shortcuts(const Store& store, bool covered = false);

// False for a key that is no command's.
bool isEnabled(const Store& store, std::string_view key, bool covered = false);

// Carries out the command of that key. Nothing happens for one that is disabled, or is not the
// Store's business (the choice of a photo, the settings window, the end of the program, where the
// keyboard goes).
void runCommand(Store& store, std::string_view key);

}  // namespace vellix
