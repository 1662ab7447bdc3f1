#include "report_pdf.hpp"

#include <QDateTime>
#include <QImage>
#include <QLocale>
#include <algorithm>

#include "check/compared.hpp"
#include "report_sheet.hpp"
#include "ticket.hpp"

namespace vellix::demo {
namespace {

constexpr int kMostPictures = 40;
constexpr std::size_t kMostFindings = 400;  // of one ticket
// Two pages with what was found on them fit on a sheet. A picture is kept finer than it is shown,
// for who looks closer.
constexpr int kPictureWidth = 1000;
constexpr int kPictureHeight = 1060;
constexpr int kFiner = 2;
constexpr int kGap = 56;

using Picture = std::function<std::optional<std::string>(const std::string&)>;

struct Numbered {
  int number = 0;
  const Finding* finding = nullptr;
};

QString of(const std::string& text) { return QString::fromStdString(text); }
QString of(const std::optional<std::string>& text) { return of(text.value_or("")); }

QString counted(Int count, const char* noun) {
  return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun),
                                                  QLatin1String(count == 1 ? "" : "s"));
}

class Report {
 public:
  Report(const ReportAsked& asked, const Picture& picture)
      : asked_(asked), picture_(picture), sheet_(of(asked.title)) {}

  std::string made() {
    using Sheet = ReportSheet;
    sheet_.put(Type::kicker, QStringLiteral("Proof report"), Sheet::kMargin, Sheet::kInner,
               toneOf("issue").colour);
    sheet_.space(12);
    sheet_.put(Type::title, of(asked_.title), Sheet::kMargin - 4, Sheet::kInner);
    sheet_.space(34);
    if (asked_.tickets.size() > 1) contents();
    for (std::size_t i = 0; i < asked_.tickets.size(); ++i) {
      if (asked_.tickets.size() > 1) sheet_.turn();
      ticket(asked_.tickets[i]);
    }
    return sheet_.finished();
  }

 private:
  QString who(const std::optional<std::string>& email) const {
    if (!email) return {};
    const auto name = asked_.names.find(*email);
    return of(name == asked_.names.end() ? email->substr(0, email->find('@')) : name->second);
  }

  static QString tallyOf(const FileDetail& detail) {
    const auto count = [&](const char* state) {
      return std::ranges::count_if(detail.findings, [&](const Finding& finding) {
        return isReal(finding) && finding.state == state;
      });
    };
    return QStringLiteral("%1 · %2 fine · %3 to decide")
        .arg(counted(count("issue"), "real issue"))
        .arg(count("fine"))
        .arg(count("open"));
  }

  void contents() {
    using Sheet = ReportSheet;
    for (const FileDetail& detail : asked_.tickets) {
      sheet_.need(150);
      sheet_.rule(Sheet::kMargin, Sheet::kInner);
      sheet_.space(22);
      sheet_.put(Type::subheading, of(detail.file.heading()), Sheet::kMargin, Sheet::kInner);
      sheet_.space(4);
      sheet_.put(Type::label, tallyOf(detail), Sheet::kMargin, Sheet::kInner, Sheet::kMuted);
      sheet_.space(24);
    }
  }

  void ticket(const FileDetail& detail) {
    using Sheet = ReportSheet;
    const FileItem& file = detail.file;
    if (asked_.tickets.size() > 1) {
      sheet_.put(Type::heading, of(file.heading()), Sheet::kMargin, Sheet::kInner);
      sheet_.space(10);
    }
    QStringList facts;
    if (file.supplier) facts << of(file.supplier);
    if (file.po) facts << QStringLiteral("PO ") + of(file.po);
    facts << QStringLiteral("v%1").arg(detail.version.value_or(1));
    const auto pages = file.pages.value_or(std::vector<Page>{});
    facts << counted(std::ssize(pages), "page");
    if (file.received) {
      const auto day = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(*file.received)).date();
      facts << QStringLiteral("came in ") +
                   QLocale::c().toString(day, QStringLiteral("MMM d, yyyy"));
    }
    sheet_.put(Type::label, facts.join(QStringLiteral("  ·  ")), Sheet::kMargin, Sheet::kInner,
               Sheet::kMuted);
    sheet_.space(30);
    sheet_.rule(Sheet::kMargin, Sheet::kInner);
    sheet_.space(30);
    sheet_.put(Type::text, of(file.summary), Sheet::kMargin, Sheet::kInner - 260);
    sheet_.space(22);
    sheet_.put(Type::label, tallyOf(detail), Sheet::kMargin, Sheet::kInner);
    sheet_.space(44);
    notes(detail, std::nullopt, Sheet::kMargin, Sheet::kInner);
    number_ = 0;
    for (const Page& page : pages) onPage(detail, page);
    if (number_ == 0) {
      sheet_.put(Type::quote,
                 pages.empty() ? QStringLiteral("There are no pages to show.")
                               : QStringLiteral("Nothing was found on its pages."),
                 Sheet::kMargin, Sheet::kInner, Sheet::kMuted);
    }
  }

  void onPage(const FileDetail& detail, const Page& page) {
    std::vector<Numbered> found;
    for (const Finding& finding : detail.findings) {
      if (finding.page != page.i || !isReal(finding) || number_ >= static_cast<int>(kMostFindings))
        continue;
      found.push_back({++number_, &finding});
    }
    if (found.empty()) return;
    using Sheet = ReportSheet;
    const QString name = QStringLiteral("Page ") + of(page.name());
    const QImage image = pictureOf(page);
    const QSize size = image.size().scaled(kPictureWidth, kPictureHeight, Qt::KeepAspectRatio);
    sheet_.need(image.isNull() ? 300 : size.height() + 80);
    sheet_.put(Type::strong, name, Sheet::kMargin, Sheet::kInner);
    sheet_.space(18);
    const int top = sheet_.y();
    int x = Sheet::kMargin;
    if (!image.isNull()) {
      const QRect place(QPoint(x, top), size);
      draw(image, place, found);
      x += std::max(size.width(), 600) + kGap;
    }
    const int width = Sheet::kWidth - Sheet::kMargin - x;
    bool turned = false;
    for (const Numbered& one : found) turned = item(one, name, x, width) || turned;
    turned = notes(detail, page.i, x, width) || turned;
    if (!turned && !image.isNull()) sheet_.setY(std::max(sheet_.y(), top + size.height()));
    sheet_.space(64);
  }

  // Null when there is none, or when there were enough.
  QImage pictureOf(const Page& page) {
    if (!page.img || drawn_ >= kMostPictures) return {};
    const auto bytes = picture_(*page.img);
    if (!bytes) return {};
    const QImage image = QImage::fromData(QByteArray::fromStdString(*bytes), "jpeg");
    if (image.isNull()) return {};
    ++drawn_;
    const QSize most(kFiner * kPictureWidth, kFiner * kPictureHeight);
    const QSize size = image.size().boundedTo(image.size().scaled(most, Qt::KeepAspectRatio));
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
  }

  void draw(const QImage& image, const QRect& place, const std::vector<Numbered>& found) {
    QPainter& painter = sheet_.painter();
    painter.drawImage(place, image);
    painter.setPen(QPen(ReportSheet::kLine, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
    for (const auto& [number, finding] : found) {
      auto boxes = finding->boxes.value_or(std::vector<std::vector<double>>{});
      if (boxes.empty() && finding->box) boxes.push_back(*finding->box);
      const QColor colour = toneOf(finding->state).colour;
      std::optional<QPointF> corner;
      for (const auto& box : boxes) {
        if (box.size() != 4) continue;
        QRectF around(place.x() + box[0] * place.width(), place.y() + box[1] * place.height(),
                      box[2] * place.width(), box[3] * place.height());
        around = around.adjusted(-7, -7, 7, 7).intersected(QRectF(place));
        // No tint: what is half transparent takes the engine's pictures with it.
        painter.setPen(QPen(Qt::white, 9));
        painter.drawRoundedRect(around, 5, 5);
        painter.setPen(QPen(colour, 5));
        painter.drawRoundedRect(around, 5, 5);
        if (!corner) corner = around.topLeft();
      }
      if (corner) {
        const double left = std::clamp(corner->x() - 6, place.left() + 24.0, place.right() - 24.0);
        const double high = std::clamp(corner->y() - 6, place.top() + 24.0, place.bottom() - 24.0);
        sheet_.badge({left, high}, number, colour);
      }
    }
  }

  // True when it went to a new sheet.
  bool item(const Numbered& one, const QString& page, int x, int width) {
    const Finding& finding = *one.finding;
    const Tone tone = toneOf(finding.state);
    const int inner = width - 62;
    QString decision = tone.word;
    if (finding.state != "open" && finding.state_by)
      decision += QStringLiteral(" · ") + who(finding.state_by);
    if (!finding.box) decision += QStringLiteral(" · has no place on the page");
    QString words;
    if (finding.before && finding.after && (!finding.before->empty() || !finding.after->empty())) {
      words = QStringLiteral("“%1” became “%2”").arg(of(finding.before), of(finding.after));
    }
    int height = sheet_.heightOf(Type::strong, of(finding.title), inner) +
                 sheet_.heightOf(Type::label, decision, inner) + 40;
    const bool turned = sheet_.need(height);
    if (turned) {
      sheet_.put(Type::label, page + QStringLiteral(", continued"), ReportSheet::kMargin,
                 ReportSheet::kInner, ReportSheet::kMuted);
      sheet_.space(24);
    }
    sheet_.badge({x + 22.0, sheet_.y() + 19.0}, one.number, tone.colour);
    const int left = x + 62;
    sheet_.put(Type::strong, of(finding.title), left, inner);
    sheet_.space(4);
    sheet_.put(Type::label, decision, left, inner, tone.colour);
    sheet_.space(6);
    sheet_.put(Type::quote, words, left, inner);
    sheet_.space(words.isEmpty() ? 0 : 4);
    sheet_.put(Type::text, of(finding.detail), left, inner, ReportSheet::kMuted);
    sheet_.space(34);
    return turned;
  }

  // Those of a page, or of the ticket; what is settled is left out.
  bool notes(const FileDetail& detail, std::optional<Int> page, int x, int width) {
    bool turned = false;
    bool any = false;
    for (const Note& note : detail.comments) {
      if (note.page != page || note.isResolved()) continue;
      const QString text = QStringLiteral("“%1”").arg(of(note.text));
      if (!any) {
        turned = sheet_.need(160) || turned;
        sheet_.put(Type::kicker, QStringLiteral("Notes"), x, width, ReportSheet::kMuted);
        sheet_.space(10);
      }
      any = true;
      turned = sheet_.need(sheet_.heightOf(Type::quote, text, width) + 40) || turned;
      sheet_.put(Type::quote, text, x, width);
      sheet_.put(Type::label, who(note.by), x, width, ReportSheet::kMuted);
      sheet_.space(22);
    }
    if (any) sheet_.space(16);
    return turned;
  }

  const ReportAsked& asked_;
  const Picture& picture_;
  ReportSheet sheet_;
  int number_ = 0;
  int drawn_ = 0;
};

}  // namespace

std::string reportPdf(
    const ReportAsked& asked,
    const std::function<std::optional<std::string>(const std::string&)>& picture) {
  return Report(asked, picture).made();
}

}  // namespace vellix::demo
