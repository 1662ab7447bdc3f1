#include "approval/share_link.hpp"

#include <algorithm>
#include <array>

#include "approval/approval_buttons.hpp"
#include "approval/sheet_ticket.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

struct Level {
  std::string_view key;
  std::string_view label;
  std::string_view allows;
};
constexpr std::array kLevels{
    Level{"view", "Can view", "They see the pages, the checks, the notes and the history."},
    Level{"comment", "Can comment",
          "They see the pages, the checks and the notes, and can leave notes of their own."},
    Level{"edit", "Can edit",
          "They can also mark findings Real issue or Fine and mark the ticket reviewed."},
};

std::string accessOf(const FileItem& file) {
  return file.share ? wordsOr(file.share->access, kLevels.front().key)
                    : std::string{kLevels.front().key};
}

const Level* levelOf(std::string_view key) {
  const auto* found = std::ranges::find(kLevels, key, &Level::key);
  return found == kLevels.end() ? nullptr : found;
}

bool isOn(const FileItem& file) { return file.share && file.share->enabled; }

// What can be handed on.
std::string urlOf(const FileItem& file) { return isOn(file) ? wordsOf(file.share->url) : ""; }

bool isBusy(const Store& store) { return store.busy().contains("share"); }

// Null while it cannot be changed.
const FileItem* changeable(const Store& store, const std::string& ticket) {
  return isBusy(store) ? nullptr : ticketOnBoard(store, ticket);
}

// Null while there is no link to hand on.
const FileItem* linked(const Store& store, const std::string& ticket) {
  const FileItem* file = ticketOnBoard(store, ticket);
  return file && !urlOf(*file).empty() ? file : nullptr;
}

}  // namespace

ShareButtonView shareButton(const FileItem& file) {
  if (isOn(file)) return {.label = "Shared", .icon = "link.circle.fill"};
  return {.label = "Share", .icon = "link"};
}

SharePopoverView sharePopover(const Store& store, const std::string& ticket,
                              const ShareRenewal& renewal) {
  const FileItem* file = ticketOnBoard(store, ticket);
  if (!file) return {};
  SharePopoverView view{.here = true,
                        .on = isOn(*file),
                        .access = accessOf(*file),
                        .levels = {},
                        .allows = {},
                        .url = urlOf(*file),
                        .notionHelp = std::string{kNotionHelp},
                        .renew = "Make a new link",
                        .warning = {},
                        .busy = isBusy(store)};
  for (const Level& level : kLevels) {
    view.levels.push_back({.key = std::string{level.key}, .label = std::string{level.label}});
  }
  const Level* level = levelOf(view.access);
  view.allows = level ? level->allows : kLevels.front().allows;
  if (!view.url.empty() && renewal.sureOf == view.url) {
    view.renew = "Make a new link?";
    view.warning = "The old link stops working.";
  }
  return view;
}

void switchShare(Store& store, const std::string& ticket, bool on) {
  const FileItem* file = changeable(store, ticket);
  if (!file || on == isOn(*file)) return;
  store.setShare(*file, on, file->share ? file->share->access : std::nullopt, false);
}

void chooseAccess(Store& store, const std::string& ticket, std::string_view access) {
  const FileItem* file = changeable(store, ticket);
  if (!file || !levelOf(access) || access == accessOf(*file)) return;
  store.setShare(*file, std::nullopt, std::string{access}, false);
}

void pressRenew(Store& store, const std::string& ticket, ShareRenewal& renewal) {
  const FileItem* file = changeable(store, ticket);
  const std::string url = file ? urlOf(*file) : "";
  if (url.empty()) return;
  if (renewal.sureOf != url) {
    renewal.sureOf = url;
    return;
  }
  renewal.sureOf.clear();
  store.setShare(*file, std::nullopt, std::nullopt, true);
}

void follow(ShareRenewal& renewal, const Store& store, const std::string& ticket) {
  const FileItem* file = ticketOnBoard(store, ticket);
  if (!file || urlOf(*file) != renewal.sureOf) renewal = {};
}

void copyShareLink(Store& store, const std::string& ticket) {
  if (const FileItem* file = linked(store, ticket)) store.copyLink(*file);
}

void copyShareForNotion(Store& store, const std::string& ticket) {
  if (const FileItem* file = linked(store, ticket)) store.copyNotionLink(*file);
}

void openShareLink(Store& store, const std::string& ticket) {
  if (const FileItem* file = linked(store, ticket)) store.openLink(*file);
}

}  // namespace vellix
