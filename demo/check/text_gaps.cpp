#include "text_gaps.hpp"

namespace vellix::demo {

void forEachGap(const Flows& flows, const TextMatch& match,
                const std::function<void(const Gap&)>& take) {
  for (std::size_t i = 0; i + 1 < flows.stretches.size(); ++i) {
    const Stretch& to = flows.stretches[i + 1];
    std::size_t now = flows.stretches[i].proof;
    std::size_t old = flows.stretches[i].reference;
    for (; now < to.proof || old < to.reference; ++now, ++old) {
      Gap gap;
      gap.stretch = i;
      gap.proofBegin = now;
      gap.referenceBegin = old;
      for (; now < to.proof && match.ofProof[now] == kNoWord; ++now) {
        if (!match.proofDone[now]) gap.proof.push_back(now);
      }
      for (; old < to.reference && match.ofReference[old] == kNoWord; ++old) {
        if (!match.referenceDone[old]) gap.reference.push_back(old);
      }
      gap.proofEnd = now;
      gap.referenceEnd = old;
      if (!gap.proof.empty() || !gap.reference.empty()) take(gap);
    }
  }
}

}  // namespace vellix::demo
