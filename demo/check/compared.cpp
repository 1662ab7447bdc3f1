#include "check/compared.hpp"

namespace vellix::demo {

Finding findingOn(std::size_t page, const Pair& pair, const char* kind, const char* severity) {
  Finding finding;
  finding.page = static_cast<Int>(page);
  finding.against = pair.against;
  finding.kind = kind;
  finding.severity = severity;
  finding.state = "open";
  return finding;
}

bool isReal(const Finding& finding) { return finding.kind != "expected" && finding.kind != "pass"; }

std::vector<double> asBox(const QRectF& box) {
  return {box.x(), box.y(), box.width(), box.height()};
}

QRectF asRect(const std::vector<double>& box) { return {box[0], box[1], box[2], box[3]}; }

std::vector<QRectF> placesOf(const Finding& finding) {
  std::vector<QRectF> places;
  for (const auto& box : finding.boxes.value_or(std::vector<std::vector<double>>{})) {
    places.push_back(asRect(box));
  }
  if (places.empty() && finding.box) places.push_back(asRect(*finding.box));
  return places;
}

void putBoxes(Finding& finding, const std::vector<QRectF>& proof,
              const std::vector<QRectF>& reference) {
  if (!proof.empty()) finding.box = asBox(proof.front());
  if (!reference.empty()) finding.ref_box = asBox(reference.front());
  if (proof.size() < 2) return;
  finding.boxes.emplace();
  for (const QRectF& box : proof) finding.boxes->push_back(asBox(box));
}

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
  return count == 1 ? "One " + one : std::to_string(count) + " " + many;
}

}  // namespace vellix::demo
