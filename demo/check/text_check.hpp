// Where the words of two documents differ, where their lines break otherwise, and what is set in
// another font or size.
#pragma once

#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

// In the order of the proof's pages. The words are compared as one text across lines and pages,
// a word that was broken at the end of a line as the whole word that it is; what stands at the head
// or foot of the pages is compared page by page. A page without live text whose partner has some,
// or the other way round, has a finding that says so.
std::vector<Finding> textFindings(const Pair& pair);

}  // namespace vellix::demo
