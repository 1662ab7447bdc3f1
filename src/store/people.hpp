// What the board tells of people.
#pragma once

#include <string>

#include "platform/ports/moment.hpp"
#include "records/records.hpp"
#include "store/store.hpp"

namespace vellix {

// Seen within the last twelve minutes. Who was never seen is never here.
bool isHere(const Person& person, Moment now);
// What the board calls the person; the address when it does not know it.
std::string personName(const Store& store, const std::string& email);

}  // namespace vellix
