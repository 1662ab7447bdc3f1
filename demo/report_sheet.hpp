// The sheets of a report: places words on them from the top down, and turns to the next in time.
#pragma once

#include <QBuffer>
#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <string>

namespace vellix::demo {

enum class Type { kicker, title, heading, subheading, strong, text, quote, label, tiny };

// How something that was found stands.
struct Tone {
  QColor colour;
  QString word;
};
Tone toneOf(const std::string& findingState);

class ReportSheet {
 public:
  // In pixels, 240 an inch, of a sheet of A4.
  static constexpr int kWidth = 1984;
  static constexpr int kHeight = 2806;
  static constexpr int kMargin = 168;
  static constexpr int kInner = kWidth - 2 * kMargin;
  static constexpr int kBottom = kHeight - 210;

  explicit ReportSheet(const QString& title);

  int y() const { return y_; }
  void setY(int y) { y_ = y; }
  void space(int pixels) { y_ += pixels; }
  void turn();  // to a new sheet
  // Turns when less than so much is left; true when it did.
  bool need(int pixels);

  int heightOf(Type type, const QString& text, int width);
  // At y, which goes on below it. Words that are too long for the width are broken.
  void put(Type type, const QString& text, int x, int width, const QColor& colour = kInk);
  void rule(int x, int width, const QColor& colour = kLine);
  // A numbered disc around a centre.
  void badge(QPointF centre, int number, const QColor& colour);
  QPainter& painter() { return painter_; }

  // The file. Nothing can be put on it afterwards.
  std::string finished();

  static constexpr QColor kInk{35, 32, 28};
  static constexpr QColor kMuted{125, 117, 105};
  static constexpr QColor kLine{214, 206, 192};

 private:
  void foot();

  QString title_;
  QByteArray bytes_;
  QBuffer buffer_{&bytes_};
  QPdfWriter writer_{&buffer_};
  QPainter painter_;
  int y_ = kMargin;
  int sheet_ = 1;
};

}  // namespace vellix::demo
