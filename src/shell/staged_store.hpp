// Puts a sample on show as the flags of the command line ask.
#pragma once

#include "shell/staging.hpp"
#include "store/staged.hpp"

namespace vellix {

// Signs in and shows the sample, with the ticket, the page and the panels that are asked for.
void stageSample(Store& store, Sample sample, const Arguments& arguments, Moment now);

// Figures for a profile of `person`. They mean nothing.
Stats madeUpStats(const BoardState& board, const std::string& person, Moment now);

}  // namespace vellix
