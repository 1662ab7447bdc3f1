#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "barcode.hpp"
#include "check/ink.hpp"
#include "check/look_check.hpp"

namespace vellix::demo {
namespace {

// A symbol that is there and does not read has at least so many of the other's edges.
constexpr double kBars = 0.4;

bool isNumber(const QString& digits) {
  return !digits.isEmpty() &&
         std::ranges::all_of(digits, [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
}

// The digit that should stand at the end of a number of thirteen; none where it does.
std::optional<char> rightDigit(const QString& digits) {
  if (digits.size() != 13 || !isNumber(digits)) return std::nullopt;
  const std::string text = digits.toStdString();
  const char right = checkDigit(text);
  return right == text.back() ? std::nullopt : std::optional(right);
}

struct Match {
  const PdfBarcode* proof = nullptr;
  const PdfBarcode* reference = nullptr;
};

// Those at one place first, then those that read the same, then those of one kind.
std::vector<Match> matched(const std::vector<PdfBarcode>& proof,
                           const std::vector<PdfBarcode>& reference) {
  std::vector<Match> matches;
  std::vector<const PdfBarcode*> now;
  std::vector<const PdfBarcode*> then;
  const auto addressOf = [](const PdfBarcode& code) { return &code; };
  std::ranges::transform(proof, std::back_inserter(now), addressOf);
  std::ranges::transform(reference, std::back_inserter(then), addressOf);
  const auto match = [&](auto fit) {
    std::erase_if(now, [&](const PdfBarcode* code) {
      const auto other =
          std::ranges::find_if(then, [&](const PdfBarcode* each) { return fit(*code, *each); });
      if (other == then.end()) return false;
      matches.push_back({code, *other});
      then.erase(other);
      return true;
    });
  };
  match([](const PdfBarcode& a, const PdfBarcode& b) {
    return a.box.intersects(b.box) && a.digits == b.digits;
  });
  match([](const PdfBarcode& a, const PdfBarcode& b) { return a.box.intersects(b.box); });
  match([](const PdfBarcode& a, const PdfBarcode& b) { return a.digits == b.digits; });
  match([](const PdfBarcode& a, const PdfBarcode& b) { return a.kind == b.kind; });
  for (const PdfBarcode* code : now) matches.push_back({code, nullptr});
  for (const PdfBarcode* code : then) matches.push_back({nullptr, code});
  return matches;
}

double barsAt(const QImage& picture, const QRectF& box) {
  if (picture.isNull()) return 0;
  const QImage plain = picture.convertToFormat(QImage::Format_RGB888);
  return edgesIn(plain, QRectF(box.x() * plain.width(), box.y() * plain.height(),
                               box.width() * plain.width(), box.height() * plain.height())
                            .toAlignedRect());
}

// Whether one picture has bars, too, where the other's barcode stands.
bool barsAlso(const QImage& here, const QImage& there, const QRectF& box) {
  return barsAt(here, box) > kBars * barsAt(there, box);
}

Finding reading(Finding finding, const std::string& title, const std::string& detail) {
  finding.title = title;
  finding.detail = detail;
  return finding;
}

Finding both(const Pair& pair, std::size_t page, const PdfBarcode& now, const PdfBarcode& then) {
  const std::string reads = now.digits.toStdString();
  const std::string was = then.digits.toStdString();
  const auto right = rightDigit(now.digits);
  Finding finding = findingOn(page, pair, "barcode", "high");
  if (now.digits != then.digits) {
    const std::string digit =
        right ? " Its check digit should be " + std::string(1, *right) + "." : "";
    finding = reading(
        std::move(finding),
        isNumber(now.digits) ? "The barcode reads another number" : "The barcode reads otherwise",
        "It reads " + reads + " where " + pair.called + " has " + was + "." + digit);
    finding.before = was;
    finding.after = reads;
  } else if (right) {
    finding.severity = "medium";
    finding = reading(std::move(finding), "The barcode’s check digit is wrong",
                      reads + " reads as in " + pair.called + ", and its check digit should be " +
                          std::string(1, *right) + ".");
  } else {
    finding.kind = "pass";
    finding.state = "pass";
    finding.severity = "low";
    const bool checked = now.digits.size() == 13 && isNumber(now.digits);
    finding =
        reading(std::move(finding), "The barcode reads",
                reads + (checked ? ", with a right check digit." : ", as in " + pair.called + "."));
  }
  putBoxes(finding, {now.box}, {then.box});
  return finding;
}

}  // namespace

std::vector<Finding> barcodeFindings(const Pair& pair, std::size_t page, const PdfSight& proof,
                                     const PdfSight& reference) {
  std::vector<Finding> findings;
  for (const auto& [now, then] : matched(proof.barcodes, reference.barcodes)) {
    if (now && then) {
      findings.push_back(both(pair, page, *now, *then));
      continue;
    }
    Finding finding = findingOn(page, pair, "barcode", "medium");
    if (now) {
      const std::string reads = now->digits.toStdString();
      if (barsAlso(reference.picture, proof.picture, now->box)) {
        finding = reading(std::move(finding), "The barcode could not be compared",
                          "It reads " + reads + ". That of " + pair.called +
                              " could not be read. Compare them by eye.");
      } else {
        finding = reading(std::move(finding), "One barcode more",
                          reads + " does not stand in " + pair.called + ".");
      }
      finding.after = reads;
      putBoxes(finding, {now->box}, {});
    } else {
      const std::string reads = then->digits.toStdString();
      if (barsAlso(proof.picture, reference.picture, then->box)) {
        finding = reading(std::move(finding), "The barcode could not be read",
                          "It should read " + reads + ", as in " + pair.called + ".");
        putBoxes(finding, {then->box}, {then->box});
      } else {
        finding.severity = "high";
        finding = reading(std::move(finding), "The barcode is missing",
                          reads + " stands in " + pair.called + ".");
        putBoxes(finding, {then->box}, {then->box});
      }
      finding.before = reads;
    }
    findings.push_back(std::move(finding));
  }
  return findings;
}

}  // namespace vellix::demo
