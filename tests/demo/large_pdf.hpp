// A PDF that is large and takes no room on the disk.
#pragma once

#include <fstream>

#include "written_pdf.hpp"

namespace vellix::demo_tests {

// The page's content lies behind a hole of so many bytes, and so does the table of where things
// are.
inline void writeLarge(const std::string& path, const WrittenPage& page, std::streamoff hole) {
  const std::string whole = writtenPdf({page});
  const std::string large = "9 0 obj\n<</Length " + std::to_string(hole) + ">>stream\n";
  const std::string after = "\nendstream\nendobj\n";
  const std::size_t cut = whole.find("5 0 obj");
  const std::size_t table = whole.find("xref");
  std::string end = whole.substr(cut);
  const auto moved = [&](std::size_t by) {
    return std::to_string(by + static_cast<std::size_t>(hole) + large.size() + after.size());
  };
  std::string far = moved(cut);
  far.insert(0, 10 - far.size(), '0');
  std::string near = std::to_string(cut);
  near.insert(0, 10 - near.size(), '0');
  end.replace(end.find(near), near.size(), far);
  const std::string start = "startxref\n" + std::to_string(table);
  end.replace(end.find(start), start.size(), "startxref\n" + moved(table));
  std::ofstream file(path, std::ios::binary);
  file << whole.substr(0, cut) << large;
  file.seekp(hole, std::ios::cur);
  file << after << end;
}

}  // namespace vellix::demo_tests
