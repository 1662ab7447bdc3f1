// What the board tells of people.
#pragma once

#include "platform/ports/moment.hpp"
#include "records/records.hpp"

namespace vellix {

// Seen within the last twelve minutes. Who was never seen is never here.
bool isHere(const Person& person, Moment now);

}  // namespace vellix
