// A check without a board: what differs between two PDFs, as JSON.
#pragma once

#include <string>

namespace vellix::demo {

// Prints it to standard output and what goes wrong to standard error; returns the exit code.
int checkAndPrint(const std::string& proof, const std::string& reference);

}  // namespace vellix::demo
