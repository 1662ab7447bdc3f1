#include "job_log.hpp"

#include <QDateTime>
#include <QLocale>

namespace vellix::demo {
namespace {

using Lines = std::vector<QString>;

QString of(const std::string& text) { return QString::fromStdString(text); }
QString of(const std::optional<std::string>& text) { return of(text.value_or("")); }
QString grouped(Int number) {
  return QLocale(QLocale::English).toString(static_cast<qlonglong>(number));
}
QString money(double dollars) { return QString::number(dollars, 'f', 4); }

QString counted(std::size_t count, const char* noun) {
  return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun),
                                                  QLatin1String(count == 1 ? "" : "s"));
}

// Milliseconds that look measured and are the same in every run.
Int took(std::size_t line, Int base) { return base + static_cast<Int>(line * 137 % 89); }

std::string written(double at, const Lines& lines) {
  const auto moment = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(at));
  const QString stamp = moment.toString(QStringLiteral("HH:mm:ss.zzz  "));
  QString all;
  for (const QString& line : lines) all += stamp + line + QLatin1Char('\n');
  return all.toStdString();
}

std::size_t pagesOf(const FileDetail& detail) {
  return detail.file.pages.value_or(std::vector<Page>{}).size();
}

QString versionOf(const FileDetail& detail) {
  return QStringLiteral("v%1").arg(detail.version.value_or(1));
}

QString tokens(const std::vector<FileDetail>& tickets) {
  const Spent spent = spentOn(tickets);
  return QStringLiteral("claude: %1 tokens in, %2 out, $%3")
      .arg(grouped(spent.in), grouped(spent.out), money(spent.cost));
}

Lines syncLines(std::size_t step, const FileDetail& detail) {
  const FileItem& file = detail.file;
  const QString id = of(file.id);
  const auto pages = detail.file.pages.value_or(std::vector<Page>{});
  Lines lines;
  switch (step) {
    case 0:
      return {QStringLiteral("mail: from %1, 1 attachment: %2")
                  .arg(of(file.sender), of(file.filename))};
    case 1:
      return {QStringLiteral("drive: PUT PO %1/%2 -> 200, %3 ms")
                  .arg(of(file.po), of(file.filename))
                  .arg(took(step, 1380))};
    case 2:
      for (const Ref& ref : file.refs.value_or(std::vector<Ref>{})) {
        lines.push_back(QStringLiteral("match %1: %2 -> %3 (%4 pages)")
                            .arg(id, of(ref.role), of(ref.name))
                            .arg(ref.matched.value_or(0)));
      }
      return lines;
    case 3:
      for (std::size_t i = 0; i < pages.size(); ++i) {
        const auto found = std::ranges::count(detail.findings, static_cast<Int>(i), &Finding::page);
        lines.push_back(QStringLiteral("compare %1 page %2/%3: %4 in %5 ms")
                            .arg(id)
                            .arg(i + 1)
                            .arg(pages.size())
                            .arg(counted(static_cast<std::size_t>(found), "difference"))
                            .arg(took(i, 410)));
      }
      return lines;
    case 4:
      return {
          QStringLiteral("scan %1: ean13 and ink list read, %2 ms").arg(id).arg(took(step, 220))};
    case 5:
      for (const Finding& finding : detail.findings) {
        lines.push_back(QStringLiteral("finding %1 [%2/%3] p%4: %5")
                            .arg(of(finding.id), of(finding.kind), of(finding.severity))
                            .arg(finding.page + 1)
                            .arg(of(finding.title)));
      }
      return lines;
    default:
      return {QStringLiteral("board: PUT files/%1 -> 201, %2")
                  .arg(id, counted(detail.findings.size(), "finding"))};
  }
}

Lines reportLines(std::size_t step, const FileDetail& detail) {
  const QString id = of(detail.file.id);
  const auto decided = [&](const char* state) {
    return std::ranges::count(detail.findings, state, &Finding::state);
  };
  Lines lines;
  switch (step) {
    case 0:
      return {QStringLiteral("GET files/%1 -> 200, %2 %3, %4")
                  .arg(id, versionOf(detail), counted(pagesOf(detail), "page"),
                       counted(detail.findings.size(), "finding")),
              QStringLiteral("%1: %2 issue, %3 fine, %4 open, %5")
                  .arg(id)
                  .arg(decided("issue"))
                  .arg(decided("fine"))
                  .arg(decided("open"))
                  .arg(counted(detail.comments.size(), "note"))};
    case 1:
      for (const Finding& finding : detail.findings) {
        if (finding.state != "issue") continue;
        lines.push_back(QStringLiteral("GET blob files/%1/%2/p%3.jpg -> 200")
                            .arg(id, versionOf(detail))
                            .arg(finding.page + 1, 3, 10, QLatin1Char('0')));
      }
      return lines;
    case 3:
      for (const Finding& finding : detail.findings) {
        lines.push_back(QStringLiteral("mark %1 on p%2: %3")
                            .arg(of(finding.id))
                            .arg(finding.page + 1)
                            .arg(finding.box ? QStringLiteral("box %1,%2")
                                                   .arg(finding.box->at(0), 0, 'f', 3)
                                                   .arg(finding.box->at(1), 0, 'f', 3)
                                             : QStringLiteral("no box")));
      }
      return lines;
    default:
      return {};
  }
}

}  // namespace

const std::vector<std::string>& stepsOf(const std::string& kind) {
  static const std::vector<std::string> sync = {
      "Reading supplier mail",       "Filing to Drive",
      "Finding our files",           "Comparing pages",
      "Reading barcodes and inks",   "Writing what was found",
      "Putting tickets on the board"};
  static const std::vector<std::string> report = {"Gathering findings", "Fetching pages",
                                                  "Drawing pages",      "Marking what was found",
                                                  "Writing the report", "Filing to Drive"};
  return kind == "sync" ? sync : report;
}

Spent spentOn(const std::vector<FileDetail>& tickets) {
  Spent spent{2'140, 310, 0};
  for (const FileDetail& detail : tickets) {
    spent.in +=
        880 * static_cast<Int>(pagesOf(detail)) + 96 * static_cast<Int>(detail.findings.size());
    spent.out += 74 * static_cast<Int>(detail.findings.size());
  }
  spent.cost = static_cast<double>(spent.in) * 3e-6 + static_cast<double>(spent.out) * 15e-6;
  return spent;
}

std::string logHead(const Job& job, double at) {
  const QString by = of(job.requested_by);
  Lines lines = {
      QStringLiteral("worker on mac-mini picked up %1 (%2)").arg(of(job.id), of(job.kind)),
      QStringLiteral("asked for by %1, %2 ms in line")
          .arg(by)
          .arg(static_cast<Int>(at - job.created.value_or(at)))};
  if (job.args && job.args->file_ids) {
    QStringList ids;
    for (const std::string& id : *job.args->file_ids) ids << of(id);
    lines.push_back(QStringLiteral("file_ids: ") + ids.join(QStringLiteral(", ")));
  }
  return written(at, lines);
}

std::string logOfStep(const Job& job, std::size_t step, const std::vector<FileDetail>& tickets,
                      double at) {
  const auto& steps = stepsOf(job.kind);
  Lines lines = {
      QStringLiteral("step %1/%2 %3").arg(step + 1).arg(steps.size()).arg(of(steps[step]))};
  const bool sync = job.kind == "sync";
  for (const FileDetail& detail : tickets) {
    for (const QString& line : sync ? syncLines(step, detail) : reportLines(step, detail)) {
      lines.push_back(QStringLiteral("  ") + line);
    }
  }
  if (sync && step == 0) {
    lines.push_back(
        QStringLiteral("  mail: 3 folders read, %1 new").arg(counted(tickets.size(), "message")));
  }
  if (steps[step].starts_with("Writing") && !tickets.empty()) {
    lines.push_back(QStringLiteral("  ") + tokens(tickets));
  }
  return written(at, lines);
}

std::string logLine(double at, const std::string& line) { return written(at, {of(line)}); }

std::string logEnd(const Job& job, double at) {
  Lines lines;
  const JobResult result = job.result.value_or(JobResult{});
  if (result.report_id)
    lines.push_back(QStringLiteral("PUT reports/%1/pdf -> 201").arg(of(result.report_id)));
  for (const std::string& line :
       job.summary.value_or(Summary{}).check.value_or(std::vector<std::string>{})) {
    lines.push_back(QStringLiteral("check: ") + of(line));
  }
  const auto spent = static_cast<Int>(at - job.started.value_or(at));
  lines.push_back(
      QStringLiteral("%1 %2 after %3 ms").arg(of(job.id), of(job.status)).arg(grouped(spent)));
  return written(at, lines);
}

}  // namespace vellix::demo
