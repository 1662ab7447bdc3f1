// From a finished report to the PDF on the person's screen.
#include "store/report_file.hpp"
#include "store/store.hpp"

namespace vellix {
namespace {

constexpr const char* kNotOpened = "Couldn't open the report.";

}  // namespace

void Store::openReport(Report report) {
  const std::string key = "open-" + report.id;
  if (holds(key)) return;
  hold(key);
  spawn(fetchReport(std::move(report), key, session_));
}

// Whoever is not known any more hears it like any other failure: the next poll signs out.
Task<> Store::fetchReport(Report report, std::string key, Session session) {
  if (session == session_) {
    auto opening = keepAndOpen(std::move(report), session);
    const auto outcome = co_await std::move(opening);
    if (!outcome && session == session_) {
      toast.set(Toast{outcome.error().description().value_or(kNotOpened)});
    }
  }
  letGo(key, session);
}

// What comes in when nobody waits for it any more is neither kept nor opened.
Task<API::Result<Done>> Store::keepAndOpen(Report report, Session session) {
  const auto download = ports_.downloads.begin();
  auto call = api_.send(
      {.path = "api/reports/" + report.id + "/pdf", .sink = download, .stop = sessionEnd()});
  const auto answer = co_await std::move(call);
  if (!answer) co_return std::unexpected(answer.error());
  if (session != session_) co_return Done{};
  const auto keeping = download->keep(
      [title = report.title](ReportFolder& folder) { return keepReport(title, folder); });
  const auto url = co_await keeping;
  if (!url) co_return std::unexpected(Failure::unreadable("the report could not be kept"));
  if (session == session_ && !ports_.opener.open(*url)) {
    co_return std::unexpected(Failure::unreadable("nothing opens reports"));
  }
  co_return Done{};
}

}  // namespace vellix
