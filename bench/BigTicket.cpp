#include "BigTicket.hpp"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <filesystem>

#include "platform/qt/QtPictureFiles.hpp"

namespace vellix::bench {
namespace {

constexpr int kPaintings = 8;  // the others are the same files under other names
constexpr QSize kPicture{2000, 3000};

// A page of type, with a coloured mark in its middle that tells it from the others.
QImage painting(int page) {
  QImage image(kPicture, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QFont face("EB Garamond");
  face.setPixelSize(44);
  painter.setFont(face);
  for (int line = 0; line < 48; ++line) {
    painter.drawText(200, 240 + line * 56,
                     QString("%1 The harbour was grey at first light, and no boat had come in %2")
                         .arg(page * 48 + line)
                         .arg(line * 7));
  }
  painter.fillRect(QRect(800, 1300, 400, 400), markOf(page));
  return image;
}

}  // namespace

std::string keyOf(int page) { return "bench-" + std::to_string(page) + ".jpg"; }
QString pathOf(int page) { return QString::fromStdString(pictureCachePath() + "/" + keyOf(page)); }
QColor markOf(int page) { return QColor::fromHsv(page % kPaintings * 360 / kPaintings, 220, 200); }

bool layOutPictures() {
  QDir().mkpath(QString::fromStdString(pictureCachePath()));
  for (int page = 0; page < kPages; ++page) {
    if (QFile::exists(pathOf(page))) continue;
    if (page < kPaintings) {
      if (!painting(page).save(pathOf(page), "JPEG", 85)) return false;
    } else {
      std::error_code error;
      std::filesystem::create_hard_link(pathOf(page % kPaintings).toStdString(),
                                        pathOf(page).toStdString(), error);
      if (error) return false;
    }
  }
  return true;
}

FileDetail bigTicket() {
  FileDetail detail;
  detail.file.id = kBigTicket;
  detail.file.title = "A long walk";
  detail.file.status = "new";
  detail.file.pages.emplace();
  for (int i = 0; i < kPages; ++i) {
    detail.file.pages->push_back({.i = i,
                                  .label = std::to_string(i + 1),
                                  .img = keyOf(i),
                                  .px = std::vector<double>{2000, 3000},
                                  .refs = {{{"submitted", {.img = keyOf((i + 1) % kPages)}},
                                            {"fbc", {.img = keyOf((i + 2) % kPages)}}}}});
  }
  return detail;
}

}  // namespace vellix::bench
