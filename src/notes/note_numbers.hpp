// The numbers by which notes are found, on the page and in the panel alike.
#pragma once

#include <vector>

#include "records/records.hpp"

namespace vellix {

// Of each of a ticket's notes: its place among the open ones of its page, from 1, whatever it hangs
// on and on whichever side. 0 for what is resolved or on no page.
std::vector<Int> noteNumbers(const FileDetail& detail);

}  // namespace vellix
