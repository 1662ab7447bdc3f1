#include "pdf_file.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <semaphore>

#include "typeset.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostTold = std::size_t{128} << 20;
constexpr double kDotsPerPoint = 240.0 / 72;
constexpr int kMostAcross = 4000;
constexpr double kMostPixels = 6'000'000;

std::counting_semaphore<2>& turns() {
  static std::counting_semaphore<2> two(2);
  return two;
}

// Everything that comes until the other end closes; empty when that is too much.
std::string allOf(int pipe) {
  std::string all;
  std::array<char, 65536> piece{};
  while (true) {
    const ssize_t got = ::read(pipe, piece.data(), piece.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return all;
    all.append(piece.data(), static_cast<std::size_t>(got));
    if (all.size() > kMostTold) return {};
  }
}

std::string excuse(QSize pixels) {
  QImage image(pixels, QImage::Format_RGB32);
  image.fill(QColor(252, 249, 241));
  QPainter painter(&image);
  QFont font = fontOf(Face::italic);
  font.setPixelSize(std::max(1, pixels.width() / 24));
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignCenter | Qt::TextWordWrap,
                   QStringLiteral("This page could not be drawn."));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpeg");
  writer.write(image);
  return bytes.toStdString();
}

}  // namespace

std::shared_ptr<const PdfFile> PdfFile::of(std::string_view bytes) {
  const int file = memfd_create("revision", MFD_CLOEXEC);
  if (file < 0) return nullptr;
  std::shared_ptr<const PdfFile> made(new PdfFile(file));
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return nullptr;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return made;
}

PdfFile::~PdfFile() { close(file_); }

std::string PdfFile::told(std::vector<std::string> arguments) const {
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) return {};
  const std::string program =
      (QCoreApplication::applicationDirPath() + QStringLiteral("/vellix_demo_pdf_reader"))
          .toStdString();
  arguments.insert(arguments.begin(), program);
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  // Fonts and the like are found by the environment; no connection of the service's is handed on,
  // since it would stay open with the reader.
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, file_, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&actions, 3);
  turns().acquire();
  pid_t child = 0;
  const int failed = posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(pipe[1]);
  std::string all = failed == 0 ? allOf(pipe[0]) : std::string();
  close(pipe[0]);
  int status = -1;
  while (failed == 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  turns().release();
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? all : std::string();
}

PdfReading PdfFile::read() const {
  const QByteArray all = QByteArray::fromStdString(told({"words"}));
  QDataStream stream(all);
  PdfReading reading;
  stream >> reading;
  return reading;
}

std::string PdfFile::picture(int page, QSize pixels) const {
  std::string jpeg = told({"picture", std::to_string(page), std::to_string(pixels.width()),
                           std::to_string(pixels.height())});
  return jpeg.empty() ? excuse(pixels) : jpeg;
}

std::vector<QImage> PdfFile::sketches() const {
  const QByteArray all = QByteArray::fromStdString(told({"sketches"}));
  QDataStream stream(all);
  std::vector<QImage> pages;
  while (!stream.atEnd()) {
    QImage page;
    stream >> page;
    if (stream.status() != QDataStream::Ok || page.format() != QImage::Format_Grayscale8) break;
    pages.push_back(std::move(page));
  }
  return pages;
}

std::string PdfFile::bytes() const {
  std::string all;
  std::array<char, 65536> piece{};
  for (off_t at = 0; const ssize_t got = pread(file_, piece.data(), piece.size(), at); at += got) {
    if (got < 0) break;
    all.append(piece.data(), static_cast<std::size_t>(got));
  }
  return all;
}

QSize pixelsWithin(const PdfPage& page, int width, int height) {
  const double scale = std::min(width / page.width, height / page.height);
  return {std::max(1, static_cast<int>(std::lround(page.width * scale))),
          std::max(1, static_cast<int>(std::lround(page.height * scale)))};
}

QSize pixelsOf(const PdfPage& page) {
  const double wide = page.width * kDotsPerPoint;
  const double high = page.height * kDotsPerPoint;
  const double scale =
      std::min({1.0, kMostAcross / wide, kMostAcross / high, std::sqrt(kMostPixels / wide / high)});
  return pixelsWithin(page, static_cast<int>(std::ceil(wide * scale)),
                      static_cast<int>(std::ceil(high * scale)));
}

}  // namespace vellix::demo
