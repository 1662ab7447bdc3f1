// The program that reads a PDF for the service, run once for each question.
#pragma once

#include <QIODevice>
#include <functional>
#include <string>
#include <vector>

#include "pdf_turns.hpp"

namespace vellix::demo {

// Well; it could not do it, and will not the next time; or it was ended from without, or had no
// turn, which says nothing of the file.
enum class ReaderEnd { well, failed, cut };

// Asks the reader about the open file; `take` reads its answer while that comes, and what it leaves
// is dropped. What it said until it failed was taken all the same. Waits for its turn and for the
// reader. Any thread.
ReaderEnd askReader(int file, std::vector<std::string> question, const Demand& demand,
                    const std::function<void(QIODevice&)>& take);

}  // namespace vellix::demo
