// The numbers by which notes are found, on the page and in the panel alike.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

// Of each of a ticket's notes: its place among the open ones of its page, from 1, whatever it hangs
// on and on whichever side. 0 for what is resolved or on no page.
std::vector<Int> noteNumbers(const FileDetail& detail);
// Digits as many as the highest number that a page's notes may come to, all of them open: nothing
// moves where one is resolved.
std::string numberRoom(const FileDetail& detail, Int page);

}  // namespace vellix
