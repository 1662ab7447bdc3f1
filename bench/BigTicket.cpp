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

std::vector<Page> pagesOf(int count) {
  std::vector<Page> pages;
  pages.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    pages.push_back({.i = i,
                     .label = std::to_string(i + 1),
                     .img = keyOf(i),
                     .px = std::vector<double>{2000, 3000},
                     .refs = {{{"submitted", {.img = keyOf((i + 1) % kPages)}},
                               {"fbc", {.img = keyOf((i + 2) % kPages)}}}}});
  }
  return pages;
}

std::string findingId(const FileItem& file, int page, int number) {
  return file.id + "-" + std::to_string(page) + "-" + std::to_string(number);
}

// In rows of 25 over the page.
void addFindings(FileDetail& detail, int page, int count) {
  constexpr const char* kSeverities[] = {"high", "medium", "medium", "low"};
  constexpr const char* kKinds[] = {"words", "breaks", "fonts", "words"};
  for (int i = 0; i < count; ++i) {
    const double x = 0.03 + 0.0376 * (i % 25);
    const double y = 0.03 + 0.0235 * (i / 25 % 40);
    const std::string number = std::to_string(i);
    detail.findings.push_back(
        {.id = findingId(detail.file, page, i),
         .file_id = detail.file.id,
         .page = page,
         .against = i % 5 == 4 ? "fbc" : "submitted",
         .kind = kKinds[i % 4],
         .severity = kSeverities[i % 4],
         .title = "A word differs in line " + number,
         .detail = "The manuscript has it otherwise, and so has the page before this one.",
         .before = "no boat had come in " + number,
         .after = "no boats had come in " + number,
         .box = std::vector<double>{x, y, 0.03, 0.012},
         .ref_box = std::vector<double>{x, y, 0.03, 0.012},
         .state = "open",
         .ord = i});
  }
}

// Of two on a page one has a place there.
void addNote(FileDetail& detail, int number, int page) {
  Note note{.id = detail.file.id + "-note-" + std::to_string(number),
            .file_id = detail.file.id,
            .page = page,
            .text = "Please look at this once more before it goes to the printer, note " +
                    std::to_string(number) + ".",
            .by = number % 3 == 0 ? "renny@tessarine.example" : "jorvas@tessarine.example",
            .at = 1'700'000'000'000.0 + number};
  if (number % 4 == 0) {
    note.x = 0.05 + 0.003 * number;
    note.y = 0.9 - 0.0028 * number;
    note.w = 0.02;
    note.h = 0.02;
    note.side = "supplier";
  }
  detail.comments.push_back(note);
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
  detail.file.pages = pagesOf(kPages);
  return detail;
}

FileDetail crowdedTicket(const FileItem& file) {
  FileDetail detail{.file = file};
  detail.file.pages = pagesOf(400);
  addFindings(detail, kFewPage, 10);
  addFindings(detail, kFullPage, 1'000);
  for (int page = 10; page < 400; page += 10) addFindings(detail, page, 5);
  for (int i = 0; i < 300; ++i) {
    const bool full = i % 2 == 0;
    addNote(detail, i, full ? kFullPage : 3 + i);
    if (full && i % 6 == 0) detail.comments.back().finding_id = findingId(file, kFullPage, i);
  }
  return detail;
}

FileDetail smallTicket(const FileItem& file) {
  FileDetail detail{.file = file};
  detail.file.pages = pagesOf(6);
  for (int page = 0; page < 6; ++page) addFindings(detail, page, 6);
  for (int i = 0; i < 6; ++i) addNote(detail, i, i);
  return detail;
}

}  // namespace vellix::bench
