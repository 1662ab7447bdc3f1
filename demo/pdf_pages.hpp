// The records of a PDF's pages, and what is told of a PDF that has none to show.
#pragma once

#include <string>

#include "check/page_matching.hpp"
#include "pdf_file.hpp"
#include "pictures.hpp"
#include "records/records.hpp"

namespace vellix::demo {

// Enters the page's picture and its small one under "files/`folder`" and "thumbs/`folder`".
Page pageRecord(const std::shared_ptr<const PdfFile>& pdf, const PdfPage& page, int index,
                const std::string& folder, Pictures& pictures);

// The same of the page of a reference that is shown beside it, under "refs/`folder`".
RefPage refRecord(const std::shared_ptr<const PdfFile>& pdf, const PdfPage& page,
                  const Partner& partner, const std::string& folder, Pictures& pictures);

// Enters the pictures of such a record anew.
void enterPictures(const std::shared_ptr<const PdfFile>& pdf, const Page& page, Pictures& pictures);
void enterPicture(const std::shared_ptr<const PdfFile>& pdf, const RefPage& page,
                  Pictures& pictures);

// Empty where there is nothing to excuse.
std::string excuseFor(const PdfReading& reading);

}  // namespace vellix::demo
