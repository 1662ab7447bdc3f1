// PDFs written by hand, plain or odd.
#pragma once

#include <string>
#include <vector>

namespace vellix::demo_tests {

struct WrittenLine {
  std::string text;  // without brackets and backslashes
  double x = 72;     // in points from the page's bottom left
  double y = 700;
  double size = 24;
};

struct WrittenPage {
  std::vector<WrittenLine> lines;
  double width = 612;
  double height = 792;
  int turned = 0;           // in degrees
  std::vector<double> cut;  // the part that is shown: left, bottom, right, top
  std::string art = {};     // operators that draw
};

inline std::string number(double value) {
  std::string text = std::to_string(value);
  return text;
}

// The objects are numbered from 1, which is the catalog.
inline std::string pdfOf(const std::vector<std::string>& objects, const std::string& trailer = "") {
  std::string pdf = "%PDF-1.4\n";
  std::string table = "xref\n0 " + std::to_string(objects.size() + 1) + "\n0000000000 65535 f \n";
  for (std::size_t i = 0; i < objects.size(); ++i) {
    std::string at = std::to_string(pdf.size());
    at.insert(0, 10 - at.size(), '0');
    table += at + " 00000 n \n";
    pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  const std::size_t start = pdf.size();
  return pdf + table + "trailer<</Size " + std::to_string(objects.size() + 1) + "/Root 1 0 R" +
         trailer + ">>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

inline std::string streamOf(const std::string& content, const std::string& entries = "") {
  return "<<" + entries + "/Length " + std::to_string(content.size()) + ">>stream\n" + content +
         "\nendstream";
}

// `encrypted` claims to be locked with a password that nobody has.
inline std::string writtenPdf(const std::vector<WrittenPage>& pages, bool encrypted = false) {
  std::vector<std::string> objects;
  std::string kids;
  for (std::size_t i = 0; i < pages.size(); ++i) kids += std::to_string(4 + 2 * i) + " 0 R ";
  objects.push_back("<</Type/Catalog/Pages 2 0 R>>");
  objects.push_back("<</Type/Pages/Kids[" + kids + "]/Count " + std::to_string(pages.size()) +
                    ">>");
  objects.push_back("<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>");
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const WrittenPage& page = pages[i];
    std::string cut;
    for (const double edge : page.cut) cut += number(edge) + " ";
    if (!cut.empty()) cut.insert(0, "/CropBox[").append("]");
    objects.push_back("<</Type/Page/Parent 2 0 R/MediaBox[0 0 " + number(page.width) + " " +
                      number(page.height) + "]" + cut + "/Rotate " + std::to_string(page.turned) +
                      "/Resources<</Font<</F 3 0 R>>>>/Contents " + std::to_string(5 + 2 * i) +
                      " 0 R>>");
    std::string drawn = "0 0 3 3 re f\n" + page.art + "\n";
    for (const WrittenLine& line : page.lines) {
      drawn += "BT /F " + number(line.size) + " Tf " + number(line.x) + " " + number(line.y) +
               " Td (" + line.text + ") Tj ET\n";
    }
    objects.push_back(streamOf(drawn));
  }
  const std::string word(32, 'x');
  return pdfOf(objects, encrypted ? "/Encrypt<</Filter/Standard/V 1/R 2/P -4/O(" + word + ")/U(" +
                                        word + ")>>/ID[(0123456789abcdef)(0123456789abcdef)]"
                                  : "");
}

inline WrittenPage pageSaying(const std::string& text) {
  return {.lines = {{.text = text}}, .cut = {}};
}

}  // namespace vellix::demo_tests
