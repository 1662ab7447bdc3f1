#include "proof_pdf.hpp"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "paint.hpp"

namespace vellix::demo {

std::string proofPdf(const std::string& title, const std::vector<PrintedPage>& pages) {
  if (pages.empty()) return {};
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(title));
  writer.setResolution(240);  // a page's own pixels
  writer.setPageMargins({});
  const auto turnTo = [&](const PageArt& art) {
    const QSize size = demo::sizeOf(art);
    writer.setPageSize(QPageSize(QSizeF(size) * 0.3, QPageSize::Point, {}, QPageSize::ExactMatch));
  };
  turnTo(pages.front().art);
  QPainter painter(&writer);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i > 0) {
      turnTo(pages[i].art);
      writer.newPage();
    }
    painter.save();
    if (pages[i].liveText) {
      paintPage(painter, pages[i].art);
    } else {
      painter.drawImage(QPoint(0, 0), paintPage(pages[i].art, 1));
    }
    painter.restore();
  }
  painter.end();
  return bytes.toStdString();
}

}  // namespace vellix::demo
