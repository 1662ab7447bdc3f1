#include "foreign_pages.hpp"

namespace vellix::demo {
namespace {

// Of shorter pages every word can be told.
constexpr std::size_t kFewestWords = 12;
constexpr double kLeastInCommon = 0.4;

struct Count {
  std::size_t all = 0;
  std::size_t known = 0;
};

}  // namespace

ForeignPages foreignPagesOf(const Pair& pair, const Flows& flows, const TextMatch& match) {
  std::vector<Count> counts(pair.proof.size());
  // A word alone has its like on any page; what counts is two in a row.
  const auto follows = [&](std::size_t word, std::size_t next) {
    return next < flows.proof.size() && match.ofProof[word] != kNoWord &&
           match.ofProof[next] == match.ofProof[word] + (next > word ? 1U : ~0U);
  };
  for (std::size_t i = 0; i < flows.proof.size(); ++i) {
    Count& count = counts[flows.proof[i].first.page];
    ++count.all;
    const bool elsewhere = match.ofProof[i] == kNoWord && match.proofDone[i];
    if (elsewhere || follows(i, i + 1) || (i > 0 && follows(i, i - 1))) ++count.known;
  }
  ForeignPages foreign(pair.proof.size(), false);
  for (std::size_t page = 0; page < foreign.size(); ++page) {
    const Count& count = counts[page];
    foreign[page] =
        pair.partners[page] && count.all >= kFewestWords &&
        static_cast<double>(count.known) < kLeastInCommon * static_cast<double>(count.all);
  }
  return foreign;
}

}  // namespace vellix::demo
