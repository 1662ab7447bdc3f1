#include "barcode.hpp"

#include <QFont>
#include <algorithm>
#include <array>
#include <cctype>

namespace vellix::demo {
namespace {

constexpr std::array<const char*, 10> kOdd = {"0001101", "0011001", "0010011", "0111101",
                                              "0100011", "0110001", "0101111", "0111011",
                                              "0110111", "0001011"};
// Which left digits use the even set, by the leading digit.
constexpr std::array<const char*, 10> kParity = {"000000", "001011", "001101", "001110", "010011",
                                                 "011001", "011100", "010101", "010110", "011010"};

std::string inverted(std::string modules) {
  for (char& module : modules) module = module == '1' ? '0' : '1';
  return modules;
}

std::string reversed(std::string modules) {
  std::ranges::reverse(modules);
  return modules;
}

}  // namespace

char checkDigit(const std::string& digits) {
  int sum = 0;
  for (std::size_t i = 0; i < 12 && i < digits.size(); ++i) {
    sum += (digits[i] - '0') * (i % 2 == 1 ? 3 : 1);
  }
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string modulesOf(const std::string& digits) {
  const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
  if (digits.size() != 13 || !std::ranges::all_of(digits, isDigit)) return {};
  const auto digit = [&](std::size_t i) { return static_cast<std::size_t>(digits[i] - '0'); };
  std::string modules = "101";
  for (std::size_t i = 1; i <= 6; ++i) {
    const std::string odd = kOdd[digit(i)];
    modules += kParity[digit(0)][i - 1] == '0' ? odd : reversed(inverted(odd));
  }
  modules += "01010";
  for (std::size_t i = 7; i <= 12; ++i) modules += inverted(kOdd[digit(i)]);
  return modules + "101";
}

void paintBarcode(QPainter& painter, const QRectF& box, const std::string& digits) {
  painter.save();
  painter.setPen(Qt::NoPen);
  painter.fillRect(box, Qt::white);
  const std::string modules = modulesOf(digits);
  // 95 modules, 11 of quiet zone on the left and 7 on the right.
  const double module = box.width() / 113;
  const double barTop = box.top() + box.height() * 0.16;
  const double barHeight = box.height() * 0.62;
  const auto isGuard = [](std::size_t i) { return i < 3 || (i >= 45 && i < 50) || i >= 92; };
  for (std::size_t i = 0; i < modules.size(); ++i) {
    if (modules[i] != '1') continue;
    const double height = isGuard(i) ? barHeight + 5 * module : barHeight;
    painter.fillRect(
        QRectF(box.left() + (11 + static_cast<double>(i)) * module, barTop, module * 1.02, height),
        QColor(20, 18, 16));
  }
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(std::max(1, static_cast<int>(module * 9.4)));
  painter.setFont(font);
  painter.setPen(QColor(20, 18, 16));
  const double digitTop = barTop + barHeight + 0.6 * module;
  const auto put = [&](double at, std::size_t i) {
    painter.drawText(QRectF(box.left() + at * module, digitTop, 7 * module, 11 * module),
                     Qt::AlignCenter, QString(QLatin1Char(digits[i])));
  };
  if (digits.size() == 13) {
    put(3, 0);
    for (std::size_t i = 1; i <= 6; ++i) put(14 + 7 * (static_cast<double>(i) - 1), i);
    for (std::size_t i = 7; i <= 12; ++i) put(61 + 7 * (static_cast<double>(i) - 7), i);
    const std::string isbn = "ISBN " + digits.substr(0, 3) + "-" + digits.substr(3, 1) + "-" +
                             digits.substr(4, 5) + "-" + digits.substr(9, 3) + "-" +
                             digits.substr(12);
    font.setPixelSize(std::max(1, static_cast<int>(module * 7.2)));
    painter.setFont(font);
    painter.drawText(
        QRectF(box.left(), box.top() + box.height() * 0.03, box.width(), box.height() * 0.12),
        Qt::AlignCenter, QString::fromStdString(isbn));
  }
  painter.restore();
}

}  // namespace vellix::demo
