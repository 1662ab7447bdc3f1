// A proof beside what it is compared with, and the beginning of every finding about the two.
#pragma once

#include <string>
#include <vector>

#include "check/page_matching.hpp"
#include "records/records.hpp"

namespace vellix::demo {

// The pages are the caller's and outlive it.
struct Pair {
  const std::vector<PdfPage>& proof;
  const std::vector<PdfPage>& reference;
  const Partners& partners;
  std::string against;  // the reference's role: "submitted", "previous", "fbc"
  std::string called;   // the reference within a sentence: "our file", "v1", "the FBC"
};

// An open finding on that page of the proof; what is left to say is the caller's, as are its id,
// ticket and order.
Finding findingOn(std::size_t page, const Pair& pair, const char* kind, const char* severity);

// Whether the two differ there. It asks nothing of a reviewer's decision.
bool isReal(const Finding& finding);

// A finding's box out of a rectangle in fractions of the page.
std::vector<double> asBox(const QRectF& box);
QRectF asRect(const std::vector<double>& box);
// Every box of the proof; none of a finding about the page as a whole.
std::vector<QRectF> placesOf(const Finding& finding);
// The first box of each, and all of the proof's where there are several.
void putBoxes(Finding& finding, const std::vector<QRectF>& proof,
              const std::vector<QRectF>& reference);

// "One word", "3 words".
std::string counted(std::size_t count, const std::string& one, const std::string& many);

}  // namespace vellix::demo
