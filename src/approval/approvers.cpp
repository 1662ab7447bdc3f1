#include "approval/approvers.hpp"

#include <algorithm>

#include "gateway/build_info.hpp"
#include "gateway/url.hpp"
#include "records/trimmed.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

bool isLocalPart(std::string_view text) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789._%+-";
  return !text.empty() && text.find_first_not_of(kLetters) == std::string_view::npos;
}

}  // namespace

std::optional<std::string> companyAddress(std::string_view typed) {
  std::string email{trimmed(typed)};
  std::ranges::transform(email, email.begin(), asciiLower);
  const auto at = email.find('@');
  if (at == std::string::npos || !isLocalPart(std::string_view{email}.substr(0, at)) ||
      std::string_view{email}.substr(at + 1) != build::kAllowedMailDomain) {
    return std::nullopt;
  }
  return email;
}

std::string addressExample() { return "name@" + std::string{build::kAllowedMailDomain}; }

bool holds(const std::vector<Guest>& list, const std::string& email) {
  return std::ranges::find(list, email, &Guest::email) != list.end();
}

std::vector<Guest> keyApprovers(const Store& store) {
  std::vector<Guest> list;
  if (!store.board() || !store.board()->approvers) return list;
  for (const Guest& guest : *store.board()->approvers) {
    if (!holds(list, guest.email)) list.push_back(guest);
  }
  return list;
}

bool isSavingApprovers(const Store& store) { return store.busy().contains("approvers"); }

bool canAddApprover(const Store& store, std::string_view typed) {
  return store.board() && !isSavingApprovers(store) && companyAddress(typed);
}

std::optional<Guest> addApprover(Store& store, std::string_view typed, std::string_view name) {
  if (!canAddApprover(store, typed)) return std::nullopt;
  Guest guest{.email = *companyAddress(typed), .name = {}};
  if (hasWords(name)) guest.name = std::string{trimmed(name)};
  auto list = keyApprovers(store);
  if (holds(list, guest.email)) return guest;
  list.push_back(guest);
  store.saveApprovers(list);
  return guest;
}

void removeApprover(Store& store, const std::string& email) {
  auto list = keyApprovers(store);
  if (isSavingApprovers(store) || !holds(list, email)) return;
  std::erase_if(list, [&](const Guest& guest) { return guest.email == email; });
  store.saveApprovers(list);
}

ApproversSectionView approversSection(const Store& store, std::string_view typed) {
  ApproversSectionView view{.here = store.board().has_value(),
                            .rows = {},
                            .none = {},
                            .example = addressExample(),
                            .canAdd = canAddApprover(store, typed),
                            .saving = isSavingApprovers(store)};
  for (const Guest& guest : keyApprovers(store)) {
    const std::string name = guest.shownName();
    view.rows.push_back({.email = guest.email, .name = name, .removeHelp = "Remove " + name});
  }
  if (view.here && view.rows.empty()) view.none = "No key approvers yet.";
  return view;
}

}  // namespace vellix
