#include "approval/send_sheet.hpp"

#include <algorithm>
#include <array>

#include "approval/approval_round.hpp"
#include "approval/approval_stage.hpp"
#include "approval/approvers.hpp"
#include "approval/sheet_ticket.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

constexpr std::string_view kNotion = "notion";
constexpr std::string_view kNothing = "none";
constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kAfter{
    {{kNotion, "Copy the link for a Notion task"},
     {"gmail", "Open a Gmail message with the link"},
     {kNothing, "Nothing"}}};

bool isOneOf(std::string_view key) {
  return std::ranges::find(kAfter, key, &std::pair<std::string_view, std::string_view>::first) !=
         kAfter.end();
}

// What is stored may be any text: the service's answer is left alone then, as with "Nothing".
std::string afterSending(const Store& store) {
  const std::string& stored = store.prefs.afterApproval();
  return isOneOf(stored) ? stored : std::string{kNothing};
}

// Who can be picked, in the order of the sheet.
std::vector<Guest> onOffer(const SendDraft& draft) {
  auto all = draft.list;
  for (const Guest& other : draft.others) {
    if (!holds(all, other.email)) all.push_back(other);
  }
  return all;
}

std::vector<std::string> pickedInOrder(const SendDraft& draft) {
  std::vector<std::string> emails;
  for (const Guest& guest : onOffer(draft)) {
    if (draft.picked.contains(guest.email)) emails.push_back(guest.email);
  }
  return emails;
}

std::string nameOf(const SendDraft& draft, const Store& store, const Guest& guest) {
  const bool known = holds(draft.list, guest.email) || hasWords(guest.name);
  return known ? guest.shownName() : displayName(store, guest.email);
}

bool canSend(const SendDraft& draft, const Store& store) {
  const FileItem* file = ticketOnBoard(store, draft.file.id);
  return file && canBeSent(*file) && !store.busy().contains("approval") &&
         !pickedInOrder(draft).empty();
}

}  // namespace

SendDraft beginSend(const Store& store, const FileItem& file) {
  SendDraft draft{.file = file, .picked = {}, .others = {}, .list = keyApprovers(store)};
  for (const std::string& email : askedApprovers(file, nullptr)) {
    draft.picked.insert(email);
    if (!holds(draft.list, email)) draft.others.push_back({.email = email, .name = {}});
  }
  if (!draft.picked.empty()) return draft;
  for (const Guest& guest : draft.list) draft.picked.insert(guest.email);
  return draft;
}

void follow(SendDraft& draft, const Store& store) {
  if (const FileItem* file = ticketOnBoard(store, draft.file.id)) draft.file = *file;
  auto list = keyApprovers(store);
  for (const Guest& guest : draft.list) {
    if (holds(list, guest.email)) continue;
    draft.picked.erase(guest.email);
    std::erase_if(draft.others, [&](const Guest& other) { return other.email == guest.email; });
  }
  draft.list = std::move(list);
}

void pick(SendDraft& draft, const std::string& email, bool picked) {
  if (!holds(onOffer(draft), email)) return;
  if (picked) {
    draft.picked.insert(email);
  } else {
    draft.picked.erase(email);
  }
}

void addTyped(SendDraft& draft, Store& store) {
  auto added = addApprover(store, draft.adding, draft.addName);
  if (!added) return;
  draft.picked.insert(added->email);
  if (!holds(onOffer(draft), added->email)) {
    // By the name that the list will show once it is saved.
    added->name = added->shownName();
    draft.others.push_back(*std::move(added));
  }
  draft.adding.clear();
  draft.addName.clear();
}

bool sendOut(const SendDraft& draft, Store& store) {
  if (!canSend(draft, store)) return false;
  const FileItem file = *ticketOnBoard(store, draft.file.id);
  store.requestApproval(file, pickedInOrder(draft), draft.note, afterSending(store));
  return true;
}

void setAfterSending(Store& store, std::string_view key) {
  if (isOneOf(key)) store.prefs.afterApproval.set(std::string{key});
}

SendSheetView sendSheet(const SendDraft& draft, const Store& store) {
  SendSheetView view{
      .title = "Send " + versionName(draft.file.versionNumber()) + " for approval",
      .intro =
          "They open the link in their browser, sign in with Google, and approve it or ask "
          "for changes. Changes come back to " +
          displayName(store, draft.file.assignee) + ".",
      .approvers = {},
      .none = {},
      .example = addressExample(),
      .canAdd = canAddApprover(store, draft.adding),
      .after = {},
      .then = afterSending(store),
      .hint = {},
      .trouble = sheetTrouble(ticketOnBoard(store, draft.file.id), canBeSent),
      .canSend = canSend(draft, store)};
  for (const Guest& guest : onOffer(draft)) {
    view.approvers.push_back({.email = guest.email,
                              .name = nameOf(draft, store, guest),
                              .picked = draft.picked.contains(guest.email)});
  }
  if (view.approvers.empty()) {
    view.none = "No key approvers yet. Add one below. They're saved for next time.";
  }
  for (const auto& [key, label] : kAfter) {
    view.after.push_back({.key = std::string{key}, .label = std::string{label}});
  }
  if (view.then == kNotion) {
    view.hint =
        "In the Notion task, paste it and pick Embed. It shows the pages to compare and where it "
        "stands, to anyone with the link.";
  }
  return view;
}

}  // namespace vellix
