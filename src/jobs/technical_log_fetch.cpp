#include "jobs/technical_log_fetch.hpp"

#include <utility>

namespace vellix {

void TechnicalLogFetch::press(const std::string& job) {
  auto request = log_.press(job);
  // Of what was asked for before nobody wants the answer.
  std::exchange(asked_, std::stop_source{}).request_stop();
  if (request) tasks_.start(fetch(*std::move(request), asked_.get_token()));
}

void TechnicalLogFetch::discard() {
  log_.discard();
  asked_.request_stop();
}

Task<> TechnicalLogFetch::fetch(TechnicalLogRequest request, std::stop_token stop) {
  auto call = api_.ask<Json>({.path = "api/jobs/" + request.job, .stop = stop});
  const auto answer = co_await std::move(call);
  std::optional<std::string> log;
  if (answer && answer->record) log = technicalLogIn(*answer->record);
  log_.arrived(request, std::move(log));
  told_();
}

}  // namespace vellix
