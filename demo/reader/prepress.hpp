// What a page tells a printer: where it is cut, in which inks it prints, and how long its unit is.
#pragma once

#include <memory>

#include "pdf_reading.hpp"

namespace vellix::demo {

class Prepress {
 public:
  // Opens the reader's PDF; where that fails, nothing is told of any page.
  Prepress();
  ~Prepress();
  Prepress(const Prepress&) = delete;
  Prepress& operator=(const Prepress&) = delete;

  // Fills in trim, bleed and inks of that page, from 0, and turns what is there in the page's own
  // unit into points. The inks are those that the page's
  // resources name, wherever they lie; whether something is printed in one is not looked at.
  void tell(int page, PdfPage& entry);

 private:
  struct Opened;
  std::unique_ptr<Opened> opened_;
};

}  // namespace vellix::demo
