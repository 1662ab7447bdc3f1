// Draws the program's icon in every size that the Mac's iconutil asks for.
//
//   vellix_iconset SVG FOLDER
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

namespace {

bool draw(QSvgRenderer& drawing, int side, const QString& file) {
  QImage icon{side, side, QImage::Format_ARGB32_Premultiplied};
  icon.fill(Qt::transparent);
  QPainter painter{&icon};
  drawing.render(&painter);
  painter.end();
  return icon.save(file, "PNG");
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) {
    std::fputs("vellix_iconset SVG FOLDER\n", stderr);
    return EXIT_FAILURE;
  }
  QSvgRenderer drawing{QString::fromLocal8Bit(argv[1])};
  const QDir folder{QString::fromLocal8Bit(argv[2])};
  bool drawn = drawing.isValid() && folder.mkpath(".");
  for (const int points : {16, 32, 128, 256, 512}) {
    const QString name = QStringLiteral("icon_%1x%1").arg(points);
    drawn = drawn && draw(drawing, points, folder.filePath(name + ".png")) &&
            draw(drawing, 2 * points, folder.filePath(name + "@2x.png"));
  }
  if (!drawn) std::fprintf(stderr, "vellix_iconset: could not draw %s to %s\n", argv[1], argv[2]);
  return drawn ? EXIT_SUCCESS : EXIT_FAILURE;
}
