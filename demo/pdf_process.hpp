// The program that reads a PDF for the service, run once for each question.
#pragma once

#include <QIODevice>
#include <functional>
#include <string>
#include <vector>

#include "pdf_turns.hpp"

namespace vellix::demo {

// Asks the reader about the open file; `take` reads its answer while that comes, and what it leaves
// is dropped. False when there was no turn to be had, or the reader failed: what it said until then
// was taken all the same. Waits for its turn and for the reader. Any thread.
bool askReader(int file, std::vector<std::string> question, const Demand& demand,
               const std::function<void(QIODevice&)>& take);

}  // namespace vellix::demo
