#include "records/finding_words.hpp"

#include <map>

#include "records/words.hpp"

namespace vellix {

std::string kindLabel(const std::string& kind) {
  static const std::map<std::string, std::string> labels{
      {"words", "Words"},          {"expected", "Our edit"},  {"breaks", "Line breaks"},
      {"hidden", "Under the art"}, {"fonts", "Fonts"},        {"size", "Size"},
      {"picture", "Art"},          {"barcode", "Barcode"},    {"spots", "Spot colors"},
      {"pass", "Passed"},          {"missing_page", "Pages"}, {"extra_page", "Pages"},
  };
  const auto found = labels.find(kind);
  return found == labels.end() ? "Other" : found->second;
}

std::string roleLabel(const std::string& role) {
  if (role == "submitted") return "What we sent";
  if (role == "previous") return "Last version";
  if (role == "fbc") return "FBC";
  return "Last print";
}

std::string cardCaption(const Finding& finding) {
  std::string against = roleLabel(finding.against);
  if (against.starts_with("What")) against.front() = 'w';
  if (against.starts_with("Last")) against.front() = 'l';
  return kindLabel(finding.kind) + " · vs " + against;
}

std::string decisionWord(const std::string& state) {
  return state == "issue" ? "Real issue" : "Fine";
}

std::string stateWord(const std::string& state) {
  return state == "issue" || state == "fine" ? decisionWord(state) : "Open";
}

std::string supplierOf(const FileItem& file) { return wordsOr(file.supplier, "Supplier"); }

}  // namespace vellix
