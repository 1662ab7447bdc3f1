// The demo's own proofs as PDFs, in their true size. Any thread.
#pragma once

#include <string>
#include <vector>

#include "page_art.hpp"

namespace vellix::demo {

struct PrintedPage {
  PageArt art;
  bool liveText = true;  // false prints it as a picture
};

std::string proofPdf(const std::string& title, const std::vector<PrintedPage>& pages);

}  // namespace vellix::demo
