#include "report_sheet.hpp"

#include <QFontMetrics>
#include <QPageSize>
#include <QTextOption>
#include <cmath>

#include "typeset.hpp"

namespace vellix::demo {
namespace {

const QTextOption& wrapped() {
  static const QTextOption option = [] {
    QTextOption made;
    made.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return made;
  }();
  return option;
}

QFont typeOf(Type type) {
  QFont font = fontOf(Face::roman);
  const auto sans = [&](int pixels) {
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(pixels);
  };
  switch (type) {
    case Type::kicker:
      sans(25);
      font.setLetterSpacing(QFont::AbsoluteSpacing, 5);
      font.setCapitalization(QFont::AllUppercase);
      break;
    case Type::title:
      font.setPixelSize(112);
      break;
    case Type::heading:
      font.setPixelSize(72);
      break;
    case Type::subheading:
      font.setPixelSize(54);
      break;
    // The serif's old-style figures would make "II" of page 11.
    case Type::strong:
      sans(31);
      font.setWeight(QFont::DemiBold);
      break;
    case Type::text:
      sans(30);
      break;
    case Type::quote:
      font.setPixelSize(40);
      font.setItalic(true);
      break;
    case Type::label:
      sans(25);
      break;
    case Type::tiny:
      sans(22);
      break;
  }
  return font;
}

// The engine writes down when a file was made, and a number that no two files share. Both are blank
// here, so that the same report is the same file; nothing moves, since blanks take the same room.
void blankOut(std::string& pdf, const std::string& from, const std::string& to) {
  const auto start = pdf.rfind(from);
  if (start == std::string::npos) return;
  const auto end = pdf.find(to, start + from.size());
  if (end != std::string::npos)
    pdf.replace(start, end + to.size() - start, end + to.size() - start, ' ');
}

}  // namespace

Tone toneOf(const std::string& findingState) {
  if (findingState == "issue") return {QColor(196, 48, 36), QStringLiteral("Real issue")};
  if (findingState == "fine") return {QColor(58, 125, 82), QStringLiteral("Fine")};
  return {QColor(196, 128, 16), QStringLiteral("Not decided yet")};
}

ReportSheet::ReportSheet(const QString& title) : title_(title) {
  buffer_.open(QIODevice::WriteOnly);
  writer_.setTitle(title);
  writer_.setResolution(240);
  writer_.setPageSize(QPageSize(QPageSize::A4));
  writer_.setPageMargins({});
  painter_.begin(&writer_);
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void ReportSheet::foot() {
  const QRect room(kMargin, kHeight - 150, kInner, 40);
  painter_.setFont(typeOf(Type::tiny));
  painter_.setPen(kMuted);
  const QFontMetrics metrics(typeOf(Type::tiny), &writer_);
  painter_.drawText(room, Qt::AlignLeft, metrics.elidedText(title_, Qt::ElideRight, kInner - 200));
  painter_.drawText(room, Qt::AlignRight, QString::number(sheet_));
}

void ReportSheet::turn() {
  foot();
  writer_.newPage();
  ++sheet_;
  y_ = kMargin;
}

bool ReportSheet::need(int pixels) {
  if (y_ + pixels <= kBottom || y_ == kMargin) return false;
  turn();
  return true;
}

int ReportSheet::heightOf(Type type, const QString& text, int width) {
  if (text.isEmpty()) return 0;
  painter_.setFont(typeOf(type));
  const QRectF room(0, 0, width, 100'000);
  return static_cast<int>(std::ceil(painter_.boundingRect(room, text, wrapped()).height()));
}

void ReportSheet::put(Type type, const QString& text, int x, int width, const QColor& colour) {
  const int height = heightOf(type, text, width);
  if (height == 0) return;
  need(height);
  painter_.setFont(typeOf(type));
  painter_.setPen(colour);
  painter_.drawText(QRectF(x, y_, width, std::min(height + 4, kBottom - y_)), text, wrapped());
  y_ += height;
}

void ReportSheet::rule(int x, int width, const QColor& colour) {
  painter_.fillRect(QRect(x, y_, width, 2), colour);
}

void ReportSheet::badge(QPointF centre, int number, const QColor& colour) {
  painter_.save();
  painter_.setPen(QPen(Qt::white, 4));
  painter_.setBrush(colour);
  const QString digits = QString::number(number);
  const double half = 19 + 7.0 * static_cast<double>(digits.size() - 1);
  const QRectF disc(centre.x() - half, centre.y() - 21, 2 * half, 42);
  painter_.drawRoundedRect(disc, 21, 21);
  QFont font = typeOf(Type::tiny);
  font.setBold(true);
  painter_.setFont(font);
  painter_.setPen(Qt::white);
  painter_.drawText(disc, Qt::AlignCenter, digits);
  painter_.restore();
}

std::string ReportSheet::finished() {
  foot();
  painter_.end();
  std::string pdf = bytes_.toStdString();
  blankOut(pdf, "/CreationDate", ")");
  blankOut(pdf, "/ID [", "]");
  return pdf;
}

}  // namespace vellix::demo
