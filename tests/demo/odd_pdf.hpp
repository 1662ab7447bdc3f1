// One page with everything that a page may say of itself.
#pragma once

#include "written_pdf.hpp"

namespace vellix::demo_tests {

struct OddPage {
  std::string entries = "/MediaBox[0 0 400 300]";  // of the page's dictionary
  std::string resources = {};                      // beside the font /F
  std::string drawn = {};
  std::vector<std::string> objects = {};  // numbered from 6
};

inline std::string oddPdf(const OddPage& page) {
  std::vector<std::string> objects = {
      "<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[4 0 R]/Count 1>>",
      "<</Type/Font/Subtype/Type1/BaseFont/QWERTY+Helvetica>>",
      "<</Type/Page/Parent 2 0 R" + page.entries + "/Resources<</Font<</F 3 0 R>>" +
          page.resources + ">>/Contents 5 0 R>>",
      streamOf(page.drawn)};
  objects.insert(objects.end(), page.objects.begin(), page.objects.end());
  return pdfOf(objects);
}

}  // namespace vellix::demo_tests
