#include "report_pdf.hpp"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "typeset.hpp"

namespace vellix::demo {
namespace {

QString text(const std::optional<std::string>& from) {
  return QString::fromStdString(from.value_or(""));
}

}  // namespace

std::string reportPdf(const std::string& title, const std::vector<FileDetail>& details) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(title));
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setResolution(240);
  QPainter painter(&writer);
  const int width = writer.width();
  int y = 0;
  const auto put = [&](const QString& line, Face face, int indent) {
    QFont font = fontOf(face);
    if (face == Face::dropCap) font.setPixelSize(84);
    painter.setFont(font);
    const QRect room(indent, y, width - indent, writer.height());
    const QRect used = painter.boundingRect(room, Qt::TextWordWrap, line);
    if (used.bottom() > writer.height() && y > 0) {
      writer.newPage();
      y = 0;
    }
    painter.drawText(QRect(indent, y, width - indent, writer.height()), Qt::TextWordWrap, line);
    y += used.height() + 18;
  };
  put(QString::fromStdString(title), Face::dropCap, 0);
  for (const FileDetail& detail : details) {
    y += 30;
    put(QString::fromStdString(detail.file.heading()), Face::italic, 0);
    put(text(detail.file.summary), Face::roman, 0);
    for (const Finding& finding : detail.findings) {
      if (finding.state != "issue") continue;
      put(QStringLiteral("%1: %2").arg(QString::fromStdString(finding.title), text(finding.detail)),
          Face::roman, 60);
    }
    for (const Note& note : detail.comments) {
      if (!note.isResolved()) put(QString::fromStdString("“" + note.text + "”"), Face::italic, 60);
    }
  }
  painter.end();
  return bytes.toStdString();
}

}  // namespace vellix::demo
