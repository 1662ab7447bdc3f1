// The key approvers: who is on the list, and how the list is changed. It is saved as a whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/store.hpp"

namespace vellix {

// The company's address that was typed, in lower case and without the blanks around it; none when
// it is not one.
std::optional<std::string> companyAddress(std::string_view typed);
// What a field for one shows while it is empty.
std::string addressExample();

bool holds(const std::vector<Guest>& list, const std::string& email);
// Those on the board, each address once.
std::vector<Guest> keyApprovers(const Store& store);

// The list is on its way to the service: what would be sent now could take that change back.
bool isSavingApprovers(const Store& store);
bool canAddApprover(const Store& store, std::string_view typed);
// The approver that was typed, saved at the list's end if the list has not got one of that address.
// None, and nothing is done, when the address is not valid or the list is being saved.
std::optional<Guest> addApprover(Store& store, std::string_view typed, std::string_view name);
void removeApprover(Store& store, const std::string& email);

struct KeyApproverView {
  std::string email;
  std::string name;
  std::string removeHelp;
  bool operator==(const KeyApproverView&) const = default;
};
BOOST_DESCRIBE_STRUCT(KeyApproverView, (), (email, name, removeHelp))

struct ApproversSectionView {
  bool here = false;  // there is a board; without one nobody can be told of, or added
  std::vector<KeyApproverView> rows;
  std::string none;     // said in place of rows
  std::string example;  // of an address
  bool canAdd = false;
  bool saving = false;
  bool operator==(const ApproversSectionView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ApproversSectionView, (), (here, rows, none, example, canAdd, saving))

// `typed` is the address in the field.
ApproversSectionView approversSection(const Store& store, std::string_view typed);

}  // namespace vellix
