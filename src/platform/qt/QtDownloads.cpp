#include "platform/qt/QtDownloads.hpp"

#include <QFile>
#include <QStandardPaths>
#include <optional>
#include <string>
#include <utility>

#include "platform/qt/ArrivingReport.hpp"

namespace vellix {
namespace {

using Url = std::optional<std::string>;

std::string downloadFolder() {
  return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation))
      .toStdString();
}

Url keepUnder(ArrivingReport& report, const Download::Naming& naming) {
  const auto name = report.finish() ? naming(report) : std::nullopt;
  // It may lie there already.
  report.drop();
  return name ? Url{report.urlOf(*name)} : std::nullopt;
}

class FolderDownload : public Download {
 public:
  FolderDownload(std::shared_ptr<ArrivingReport> report, Errands& errands)
      : report_(std::move(report)), errands_(errands) {}

  bool write(std::string_view bytes) override { return report_->append(bytes); }

  Pending<Url> keep(Naming naming) override {
    return errands_.run<Url>(
        [report = report_, naming = std::move(naming)] { return keepUnder(*report, naming); },
        std::nullopt);
  }

 private:
  const std::shared_ptr<ArrivingReport> report_;
  Errands& errands_;
};

}  // namespace

QtDownloads::~QtDownloads() {
  for (const auto& one : arriving_) {
    if (const auto report = one.lock()) report->drop();
  }
}

std::shared_ptr<Download> QtDownloads::begin() {
  std::erase_if(arriving_, [](const auto& one) { return one.expired(); });
  const auto report = std::make_shared<ArrivingReport>(downloadFolder());
  arriving_.push_back(report);
  return std::make_shared<FolderDownload>(report, errands_);
}

}  // namespace vellix
