#include "jobs/technical_log.hpp"

#include <utility>

namespace vellix {

std::optional<TechnicalLogRequest> TechnicalLog::press(const std::string& job) {
  const bool hides = job == job_;
  discard();
  if (hides || job.empty()) return std::nullopt;
  job_ = job;
  return TechnicalLogRequest{.job = job_, .number = ++number_};
}

void TechnicalLog::arrived(const TechnicalLogRequest& request, std::optional<std::string> log) {
  if (!loading() || request.number != number_) return;
  // Kept open without a text, it would take a press that does nothing to ask again.
  if (!log) {
    discard();
  } else {
    text_ = std::move(log);
  }
}

void TechnicalLog::discard() {
  job_.clear();
  text_.reset();
}

std::optional<std::string> technicalLogIn(const Json& answer) {
  const Json* log = answer.find("log");
  if (!log || !log->text()) return std::nullopt;
  return *log->text();
}

}  // namespace vellix
