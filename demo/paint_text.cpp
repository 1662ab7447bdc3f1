#include <QFontMetricsF>

#include "paint.hpp"

namespace vellix::demo {
namespace {

const QColor kInk(29, 26, 23);

void paintHead(QPainter& painter, const TextPage& page, const QRectF& block) {
  const bool left = page.number % 2 == 0;
  const Book& book = bookOf(page.bookId);
  const QString head = QString::fromStdString(left ? book.title : page.chapter).toUpper();
  painter.setFont(fontOf(Face::smallCaps));
  painter.drawText(QRectF(block.left(), 148, block.width(), 50), Qt::AlignCenter, head);
}

void paintOpening(QPainter& painter, const TextPage& page, const QRectF& block) {
  painter.setFont(fontOf(Face::smallCaps));
  painter.drawText(QRectF(block.left(), 330, block.width(), 50), Qt::AlignCenter,
                   page.chapterNumber == 1 ? QStringLiteral("ONE") : QStringLiteral("TWO"));
  QFont title = fontOf(Face::italic);
  title.setPixelSize(76);
  painter.setFont(title);
  painter.drawText(QRectF(block.left(), 400, block.width(), 110), Qt::AlignCenter,
                   QString::fromStdString(page.chapter));
  // A small rule with a lozenge in the middle.
  const QPointF centre(block.center().x(), 580);
  painter.fillRect(QRectF(centre.x() - 130, centre.y() - 1, 105, 2), kInk);
  painter.fillRect(QRectF(centre.x() + 25, centre.y() - 1, 105, 2), kInk);
  painter.save();
  painter.translate(centre);
  painter.rotate(45);
  painter.fillRect(QRectF(-6, -6, 12, 12), kInk);
  painter.restore();
}

}  // namespace

void paintTextPage(QPainter& painter, const TextPage& page, QPointF plateShift) {
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight), QColor(252, 249, 241));
  const QRectF block = textBlock();
  painter.setPen(kInk);
  if (page.chapterNumber > 0) {
    paintOpening(painter, page, block);
  } else {
    paintHead(painter, page, block);
  }
  if (page.plateHeight > 0) paintPlate(painter, page.bookId, plateBox(page).translated(plateShift));

  painter.setPen(kInk);
  const auto words = placed(page);
  for (const PlacedWord& word : words) {
    painter.setFont(fontOf(word.face));
    painter.drawText(QPointF(word.x, word.baseline), word.text);
  }
  if (!page.dropCap.isEmpty() && !words.empty()) {
    painter.setFont(fontOf(Face::dropCap));
    painter.drawText(QPointF(block.left() - 6, words.front().baseline + 2 * 56 + 2), page.dropCap);
  }
  QFont folio = fontOf(Face::roman);
  folio.setPixelSize(38);
  painter.setFont(folio);
  painter.drawText(QRectF(block.left(), kPageHeight - 158, block.width(), 50), Qt::AlignCenter,
                   QString::number(page.number));
}

}  // namespace vellix::demo
