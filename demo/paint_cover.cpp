#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>

#include "barcode.hpp"
#include "paint.hpp"

namespace vellix::demo {
namespace {

QFont coverFont(int pixels, bool italic = false) {
  QFont font = fontOf(italic ? Face::italic : Face::roman);
  font.setPixelSize(pixels);
  return font;
}

QFont spaced(int pixels, double spacing) {
  QFont font = coverFont(pixels);
  font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
  return font;
}

// The dark covers carry pale letters.
bool dark(const std::string& bookId) { return bookId != "carto" && bookId != "bread"; }

QColor lettering(const std::string& bookId) {
  const Palette palette = paletteOf(bookId);
  return dark(bookId) ? palette.pale : palette.ink;
}

void paintMedal(QPainter& painter, const PageArt& page) {
  const QRectF box = panelBox(PageKind::front, page.bookId, Element::medal);
  const Palette palette = paletteOf(page.bookId);
  const QColor ground = page.strayColour ? QColor(232, 30, 140) : palette.accent;
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawEllipse(box);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(255, 255, 255, 210), 3));
  painter.drawEllipse(box.adjusted(11, 11, -11, -11));
  painter.setPen(Qt::white);
  painter.setFont(spaced(19, 2));
  painter.drawText(box.adjusted(0, -46, 0, -46), Qt::AlignCenter, QStringLiteral("TESSARINE"));
  painter.setFont(coverFont(62, true));
  painter.drawText(box.adjusted(0, 4, 0, 4), Qt::AlignCenter, QStringLiteral("first"));
  painter.setFont(spaced(19, 2));
  painter.drawText(box.adjusted(0, 52, 0, 52), Qt::AlignCenter, QStringLiteral("EDITION"));
}

// The publisher's device: an open book under an arc.
void paintDevice(QPainter& painter, QPointF centre, double size, const QColor& colour) {
  painter.save();
  painter.translate(centre);
  painter.setPen(QPen(colour, size * 0.07, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  QPainterPath path;
  path.moveTo(0, size * 0.35);
  path.quadTo(-size * 0.25, size * 0.12, -size * 0.5, size * 0.2);
  path.lineTo(-size * 0.5, -size * 0.15);
  path.quadTo(-size * 0.25, -size * 0.22, 0, 0);
  path.quadTo(size * 0.25, -size * 0.22, size * 0.5, -size * 0.15);
  path.lineTo(size * 0.5, size * 0.2);
  path.quadTo(size * 0.25, size * 0.12, 0, size * 0.35);
  path.lineTo(0, 0);
  painter.drawPath(path);
  painter.drawArc(QRectF(-size * 0.28, -size * 0.55, size * 0.56, size * 0.56), 35 * 16, 110 * 16);
  painter.restore();
}

// The front's landscape goes on over the back as a band.
void paintBand(QPainter& painter, const std::string& bookId) {
  painter.save();
  painter.setClipRect(QRectF(0, 1150, kPageWidth, 330));
  painter.translate(0, bookId == "letter" ? -60 : bookId == "lanterns" ? -330 : 10);
  paintArt(painter, bookId, {});
  painter.restore();
}

// Lines at a steady distance, each word whole.
void paintRunning(QPainter& painter, const QString& text, const QRectF& box, double leading) {
  const QFontMetricsF metrics(painter.font());
  double x = box.left();
  double baseline = box.top() + leading;
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    const double width = metrics.horizontalAdvance(word);
    if (x > box.left() && x + width > box.right()) {
      x = box.left();
      baseline += leading;
    }
    painter.drawText(QPointF(x, baseline), word);
    x += width + metrics.horizontalAdvance(u' ');
  }
}

}  // namespace

void paintFront(QPainter& painter, const PageArt& page) {
  const Book& book = bookOf(page.bookId);
  paintArt(painter, page.bookId,
           {page.pictureShift.x() * kPageWidth, page.pictureShift.y() * kPageHeight});
  const QColor ink = lettering(page.bookId);
  const QRectF title = panelBox(PageKind::front, page.bookId, Element::title);
  const int pixels = titlePixels(book);
  painter.setPen(ink);
  painter.setFont(coverFont(pixels));
  double y = title.top();
  for (const std::string& line : book.titleLines) {
    painter.drawText(QRectF(title.left(), y, title.width(), pixels * 1.05), Qt::AlignCenter,
                     QString::fromStdString(line));
    y += pixels * 0.94;
  }
  painter.setFont(coverFont(50, true));
  painter.drawText(panelBox(PageKind::front, page.bookId, Element::tagline), Qt::AlignCenter,
                   QString::fromStdString(page.earlierPrinting ? kEarlierTagline : book.tagline));
  painter.setFont(spaced(58, 9));
  painter.drawText(panelBox(PageKind::front, page.bookId, Element::author), Qt::AlignCenter,
                   QString::fromStdString(book.author).toUpper());
  paintMedal(painter, page);
}

void paintBack(QPainter& painter, const PageArt& page) {
  const Book& book = bookOf(page.bookId);
  const Palette palette = paletteOf(page.bookId);
  const QRectF all(0, 0, kPageWidth, kPageHeight);
  painter.fillRect(all, palette.ground);
  const QColor ink = lettering(page.bookId);
  painter.setPen(ink);
  painter.setFont(coverFont(62, true));
  painter.drawText(QRectF(150, 190, 1140, 300), Qt::AlignCenter | Qt::TextWordWrap,
                   QString::fromStdString(book.quote));
  painter.fillRect(QRectF(660, 528, 120, 3), palette.accent);
  painter.setFont(blurbFont());
  painter.setPen(ink);
  for (const PlacedWord& word : blurbWords(page)) {
    painter.drawText(QPointF(word.x, word.baseline), word.text);
  }
  paintBand(painter, page.bookId);
  const QRectF credit = panelBox(PageKind::back, page.bookId, Element::credit);
  painter.setFont(coverFont(32));
  painter.drawText(credit, Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Cover art cut and printed by Ode Fenwick"));
  if (page.creditCovered) painter.fillRect(credit.adjusted(-8, -6, 8, 6), palette.ground);
  paintDevice(painter, {190, 1740}, 100, ink);
  painter.setPen(ink);
  painter.setFont(spaced(34, 6));
  painter.drawText(QRectF(270, 1706, 560, 70), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("TESSARINE"));
  paintBarcode(painter, panelBox(PageKind::back, page.bookId, Element::barcode), page.barcode);
}

void paintSpine(QPainter& painter, const PageArt& page, const QRectF& box) {
  const Book& book = bookOf(page.bookId);
  const Palette palette = paletteOf(page.bookId);
  painter.save();
  // A little over its panels' edges, so that no seam shows.
  painter.fillRect(box.adjusted(-1.5, 0, 1.5, 0), palette.deep);
  painter.setPen(dark(page.bookId) ? palette.pale : QColor(250, 246, 236));
  painter.translate(box.center().x(), 0);
  painter.rotate(90);
  painter.setFont(coverFont(82));
  painter.drawText(QRectF(110, -box.width() / 2, 860, box.width()), Qt::AlignVCenter,
                   QString::fromStdString(book.title));
  painter.setFont(spaced(36, 5));
  painter.drawText(QRectF(860, -box.width() / 2, 470, box.width()),
                   Qt::AlignVCenter | Qt::AlignRight,
                   QString::fromStdString(book.author).section(u' ', -1).toUpper());
  painter.restore();
  paintDevice(painter, {box.center().x(), 1430}, 74,
              dark(page.bookId) ? palette.pale : QColor(250, 246, 236));
}

void paintFlaps(QPainter& painter, const PageArt& page) {
  const Book& book = bookOf(page.bookId);
  const Palette palette = paletteOf(page.bookId);
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight), QColor(251, 247, 237));
  painter.fillRect(QRectF(0, 0, kPageWidth, 26), palette.accent);
  painter.setPen(QPen(QColor(0, 0, 0, 40), 2, Qt::DashLine));
  painter.drawLine(QPointF(kPageWidth / 2.0, 26), QPointF(kPageWidth / 2.0, kPageHeight));
  painter.setPen(palette.ink);
  painter.setFont(coverFont(70, true));
  painter.drawText(QRectF(110, 180, 540, 120), Qt::AlignVCenter,
                   QString::fromStdString(book.title));
  painter.setFont(blurbFont());
  for (const PlacedWord& word : blurbWords(page)) {
    painter.drawText(QPointF(word.x, word.baseline), word.text);
  }
  const QRectF portrait(880, 300, 400, 400);
  painter.save();
  QPainterPath frame;
  frame.addEllipse(portrait);
  painter.setClipPath(frame);
  painter.translate(portrait.topLeft() - QPointF(100, 330));
  painter.scale(0.42, 0.42);
  paintArt(painter, page.bookId, {});
  painter.restore();
  painter.setPen(palette.ink);
  painter.setFont(spaced(38, 5));
  painter.drawText(QRectF(790, 760, 580, 60), Qt::AlignCenter,
                   QString::fromStdString(book.author).toUpper());
  painter.setFont(coverFont(42));
  paintRunning(painter,
               QString::fromStdString(book.author) +
                   QStringLiteral(" lives at the end of a long lane with two dogs and a great many "
                                  "pencils. This is a first book with this house, and a second is "
                                  "on its way."),
               QRectF(820, 850, 520, 700), 58);
  painter.setFont(coverFont(52, true));
  paintRunning(painter, QString::fromStdString(book.quote), QRectF(110, 1400, 540, 300), 66);
  paintDevice(painter, {1080, 1760}, 110, palette.ink);
  painter.setFont(coverFont(36));
  painter.drawText(QRectF(110, 1800, 540, 60), Qt::AlignVCenter,
                   QStringLiteral("Printed on uncoated stock"));
}

}  // namespace vellix::demo
