// A job's raw log, fetched when it is asked for and kept as long as it is looked at.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "records/json.hpp"

namespace vellix {

// What was asked of the service.
struct TechnicalLogRequest {
  std::string job;
  std::uint64_t number = 0;
};

class TechnicalLog {
 public:
  // Opens the job's log, or hides it when it is open or on its way. What there is to ask the
  // service for then; none for nothing. Of a job without an id there is nothing to ask.
  std::optional<TechnicalLogRequest> press(const std::string& job);
  // None when it could not be had: the next press asks again. An answer to what is no longer asked
  // for is dropped.
  void arrived(const TechnicalLogRequest& request, std::optional<std::string> log);
  // The panel is closed, or the session has ended.
  void discard();

  // The job it is of; empty while it is hidden.
  const std::string& job() const { return job_; }
  bool loading() const { return !job_.empty() && !text_; }
  // None until it has come.
  const std::optional<std::string>& text() const { return text_; }

 private:
  std::string job_;
  std::optional<std::string> text_;
  // Of the last request. It goes on counting, so that the same job asked for twice has two answers.
  std::uint64_t number_ = 0;
};

// The log in what the service answers; none when it holds none.
std::optional<std::string> technicalLogIn(const Json& answer);

}  // namespace vellix
