#include "shell/commands.hpp"

#include <algorithm>
#include <array>

#include "board/sync_card.hpp"
#include "jobs/report_area.hpp"
#include "ticket/review_button.hpp"

namespace vellix {
namespace {

bool always(const Store&) { return true; }
bool whileSignedIn(const Store& store) { return store.signedIn(); }
bool whilePhotoStays(const Store& store) {
  return store.signedIn() && !store.busy().contains("photo");
}
// Each as its button, which a shortcut must not outrun. Behind a person's page there is none.
bool whileReportable(const Store& store) {
  return !store.profile() && store.currentFile() && canMakeReport(store);
}
bool whileReviewable(const Store& store) {
  const ReviewButtonView button = reviewButton(store);
  return !store.profile() && button.enabled && button.ends;
}

void nothing(Store&) {}  // the window's own business
void signOut(Store& store) { store.signOut(false); }
void refresh(Store& store) { store.requestRefresh(); }
void markReviewed(Store& store) { store.setStatus(*store.currentFile(), "reviewed"); }
void zoomIn(Store& store) { store.stepZoom(Store::kZoomIn); }
void zoomOut(Store& store) { store.stepZoom(Store::kZoomOut); }
void fitPage(Store& store) { store.fitZoom(); }
void notes(Store& store) { store.toggleNotes(); }
void activity(Store& store) { store.setShowActivity(!store.showActivity()); }
void pageStrip(Store& store) { store.prefs.showPageStrip.set(!store.prefs.showPageStrip()); }

struct Command {
  const char* key = "";  // none: a separator
  const char* text = "";
  const char* shortcut = "";
  bool (*enabled)(const Store&) = always;
  void (*run)(Store&) = nothing;
  const char* also = "";  // another shortcut
  bool repeats = false;
};
constexpr Command kSeparator{};

constexpr std::array kApplication{
    Command{"changePhoto", "Change my photo…", "", whilePhotoStays},
    Command{"signOut", "Sign out", "", whileSignedIn, signOut},
    kSeparator,
    Command{"settings", "Settings…", "Ctrl+,"},
    kSeparator,
    Command{"quit", "Quit Vellix", "Ctrl+Q"},
};
constexpr std::array kReview{
    Command{"sync", "Sync", "Ctrl+Shift+S", canSync, askForSync},
    Command{"refresh", "Refresh", "Ctrl+R", whileSignedIn, refresh},
    kSeparator,
    Command{"report", "Make report", "Ctrl+Shift+P", whileReportable, makeReport},
    Command{"markReviewed", "Mark reviewed", "Ctrl+D", whileReviewable, markReviewed},
    kSeparator,
    Command{"activity", "Activity", "Ctrl+Y", always, activity},
};
constexpr std::array kView{
    // "+" to everybody, whatever key it shares.
    Command{"zoomIn", "Zoom in", "Ctrl+=", always, zoomIn, "Ctrl++", true},
    Command{"zoomOut", "Zoom out", "Ctrl+-", always, zoomOut, "", true},
    Command{"fitPage", "Fit the page", "Ctrl+0", always, fitPage},
    kSeparator,
    Command{"notes", "Show notes", "Ctrl+Alt+I", always, notes},
    Command{"pageStrip", "Show the page strip", "", always, pageStrip},
};

// They stand in no menu.
constexpr std::array kKeyboard{
    Command{"nextPart", "", "F6", whileSignedIn},
    Command{"previousPart", "", "Shift+F6", whileSignedIn},
    Command{"nextTicket", "", "Alt+Down", whileSignedIn, nothing, "", true},
    Command{"previousTicket", "", "Alt+Up", whileSignedIn, nothing, "", true},
};

std::string textOf(const Command& command, const Store& store) {
  const std::string_view key = command.key;
  if (key == "notes" && store.notesOpen()) return "Hide notes";
  if (key == "pageStrip" && store.prefs.showPageStrip()) return "Hide the page strip";
  return command.text;
}

bool isToBeHad(const Command& command, const Store& store, bool covered) {
  return command.enabled(store) && (!covered || std::string_view{command.key} == "quit");
}

template <std::size_t N>
MenuView menu(const char* title, const std::array<Command, N>& commands, const Store& store,
              bool covered) {
  MenuView view{.title = title, .entries = {}};
  for (const Command& command : commands) {
    view.entries.push_back({.key = command.key,
                            .text = textOf(command, store),
                            .shortcut = command.shortcut,
                            .enabled = isToBeHad(command, store, covered)});
  }
  return view;
}

template <std::size_t N>
void addShortcuts(std::vector<ShortcutView>& views, const std::array<Command, N>& commands,
                  const Store& store, bool covered, bool everywhere = false, bool listed = true) {
  for (const Command& command : commands) {
    ShortcutView view{.key = command.key,
                      .enabled = isToBeHad(command, store, covered),
                      .repeats = command.repeats,
                      .everywhere = everywhere,
                      .listed = listed};
    for (const std::string sequence : {command.shortcut, command.also}) {
      if (!sequence.empty()) view.sequences.push_back(sequence);
    }
    if (!view.sequences.empty()) views.push_back(std::move(view));
  }
}

template <std::size_t N>
const Command* findIn(const std::array<Command, N>& commands, std::string_view key) {
  const auto found = std::ranges::find(
      commands, key, [](const Command& one) { return std::string_view{one.key}; });
  return found == commands.end() ? nullptr : &*found;
}

// Null when there is none of that key.
const Command* commandOf(std::string_view key) {
  if (const Command* found = findIn(kApplication, key)) return found;
  if (const Command* found = findIn(kReview, key)) return found;
  if (const Command* found = findIn(kView, key)) return found;
  return findIn(kKeyboard, key);
}

}  // namespace

std::vector<MenuView> menuBar(const Store& store, bool covered) {
  return {menu("Vellix", kApplication, store, covered), menu("Review", kReview, store, covered),
          // The trailing blank keeps it apart from the system's own menu of that name.
          menu("View ", kView, store, covered)};
}

std::vector<ShortcutView> shortcuts(const Store& store, bool covered) {
  std::vector<ShortcutView> views;
  addShortcuts(views, kApplication, store, covered, true);
  addShortcuts(views, kReview, store, covered);
  addShortcuts(views, kView, store, covered);
  addShortcuts(views, kKeyboard, store, covered, false, false);
  return views;
}

bool isEnabled(const Store& store, std::string_view key, bool covered) {
  const Command* command = commandOf(key);
  return command && isToBeHad(*command, store, covered);
}

void runCommand(Store& store, std::string_view key) {
  if (isEnabled(store, key)) commandOf(key)->run(store);
}

}  // namespace vellix
