#include "reader/barcodes.hpp"

#include <zbar.h>

#include <algorithm>
#include <memory>
#include <span>

namespace vellix::demo {
namespace {

constexpr int kLeastAgreeing = 3;  // lines of the picture that read the same
constexpr unsigned kDigitsOnABox = 14;

using Scanner = std::unique_ptr<zbar::zbar_image_scanner_t,
                                decltype([](auto* it) { zbar::zbar_image_scanner_destroy(it); })>;
using Frame =
    std::unique_ptr<zbar::zbar_image_t, decltype([](auto* it) { zbar::zbar_image_destroy(it); })>;

Scanner scanner() {
  Scanner made(zbar::zbar_image_scanner_create());
  const auto set = [&](zbar::zbar_symbol_type_t kind, zbar::zbar_config_t what, int value) {
    zbar::zbar_image_scanner_set_config(made.get(), kind, what, value);
  };
  set(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
  for (const auto kind : {zbar::ZBAR_EAN13, zbar::ZBAR_EAN8, zbar::ZBAR_UPCA, zbar::ZBAR_UPCE,
                          zbar::ZBAR_CODE128, zbar::ZBAR_I25, zbar::ZBAR_QRCODE}) {
    set(kind, zbar::ZBAR_CFG_ENABLE, 1);
  }
  set(zbar::ZBAR_NONE, zbar::ZBAR_CFG_POSITION, 1);
  set(zbar::ZBAR_NONE, zbar::ZBAR_CFG_X_DENSITY, 1);
  set(zbar::ZBAR_NONE, zbar::ZBAR_CFG_Y_DENSITY, 1);
  return made;
}

// By the last of its digits, weighed three and one from the right.
bool addsUp(std::string_view digits) {
  int sum = 0;
  int weight = 1;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, weight = 4 - weight) {
    if (*digit < '0' || *digit > '9') return false;
    sum += (*digit - '0') * weight;
  }
  return sum % 10 == 0;
}

bool trusted(zbar::zbar_symbol_type_t kind, std::string_view digits, int agreeing) {
  if (kind == zbar::ZBAR_QRCODE) return true;  // it mends its own errors
  if (kind == zbar::ZBAR_I25 && (digits.size() != kDigitsOnABox || !addsUp(digits))) return false;
  return agreeing >= kLeastAgreeing;
}

// Strips of one bar that were drawn side by side leave a grey line between them: bars end where it
// is lighter than any of these.
QImage withoutSeams(QImage grey) {
  constexpr int kSeam = 45;  // percent of the way from the darkest to the lightest
  int dark = 255;
  int light = 0;
  for (int y = 0; y < grey.height(); ++y) {
    const auto [least, most] = std::ranges::minmax(std::span(grey.constScanLine(y), grey.width()));
    dark = std::min<int>(dark, least);
    light = std::max<int>(light, most);
  }
  const int seam = dark + (light - dark) * kSeam / 100;
  if (seam >= light) return grey;
  for (int y = 0; y < grey.height(); ++y) {
    for (uchar& shade : std::span(grey.scanLine(y), grey.width())) {
      shade = static_cast<uchar>(std::max(0, shade - seam) * 255 / (light - seam));
    }
  }
  return grey;
}

QRectF boxOf(const zbar::zbar_symbol_t* symbol) {
  QRectF box;
  for (unsigned i = 0; i < zbar::zbar_symbol_get_loc_size(symbol); ++i) {
    box |= QRectF(zbar::zbar_symbol_get_loc_x(symbol, i), zbar::zbar_symbol_get_loc_y(symbol, i), 1,
                  1);
  }
  return box;
}

}  // namespace

std::vector<PdfBarcode> barcodesIn(const QImage& picture) {
  // One for each: it would take half of a number for the half that it could not read before.
  const Scanner reader = scanner();
  const QImage grey = withoutSeams(picture);
  const Frame frame(zbar::zbar_image_create());
  std::vector<PdfBarcode> codes;
  if (grey.isNull() || !reader || !frame) return codes;
  zbar::zbar_image_set_format(frame.get(), zbar_fourcc('Y', '8', '0', '0'));
  // A row of theirs is as long as it is wide, one of ours is filled up to a multiple of four.
  zbar::zbar_image_set_size(frame.get(), static_cast<unsigned>(grey.bytesPerLine()),
                            static_cast<unsigned>(grey.height()));
  zbar::zbar_image_set_data(frame.get(), grey.constBits(),
                            static_cast<unsigned long>(grey.sizeInBytes()), nullptr);
  zbar::zbar_scan_image(reader.get(), frame.get());
  for (const auto* symbol = zbar::zbar_image_first_symbol(frame.get()); symbol != nullptr;
       symbol = zbar::zbar_symbol_next(symbol)) {
    const auto kind = zbar::zbar_symbol_get_type(symbol);
    const std::string_view digits(zbar::zbar_symbol_get_data(symbol),
                                  zbar::zbar_symbol_get_data_length(symbol));
    if (!trusted(kind, digits, zbar::zbar_symbol_get_quality(symbol))) continue;
    codes.push_back({QString::fromLatin1(zbar::zbar_get_symbol_name(kind)),
                     QString::fromUtf8(digits.data(), static_cast<qsizetype>(digits.size())),
                     boxOf(symbol).intersected(QRectF(grey.rect()))});
  }
  return codes;
}

}  // namespace vellix::demo
