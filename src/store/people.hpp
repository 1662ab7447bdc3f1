// What the board tells of people.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/moment.hpp"
#include "records/records.hpp"
#include "store/store.hpp"

namespace vellix {

// Seen within the last twelve minutes. Who was never seen is never here.
bool isHere(const Person& person, Moment now);

// One reviewer's mailbox is known: its owner sees to the reprints.
bool handlesReprints(std::string_view email);

// What nobody is named for was done by the worker.
inline constexpr std::string_view kWorker = "Claude";

// What the board calls the person; the address when it knows no name.
std::string personName(const Store& store, const std::string& email);
// What the reader calls them: "You", a colleague's first name, the first word of an outsider's, or
// else what can be taken from the address.
std::string displayName(const Store& store, const std::optional<std::string>& email);

// What the reader calls each of them, in words: "A", "A and B", "A, B and C".
std::string joinNames(const Store& store, const std::vector<std::string>& emails);

}  // namespace vellix
