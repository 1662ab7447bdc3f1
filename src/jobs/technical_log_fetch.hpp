// A job's raw log, as a person shows and hides it. Main thread only.
#pragma once

#include <functional>
#include <stop_token>

#include "gateway/api.hpp"
#include "jobs/technical_log.hpp"
#include "platform/ports/task.hpp"

namespace vellix {

class TechnicalLogFetch {
 public:
  // Told when the log came or could not be had, of which nothing is said. The API must outlive
  // this.
  TechnicalLogFetch(API& api, std::function<void()> told) : api_(api), told_(std::move(told)) {}

  const TechnicalLog& log() const { return log_; }

  // Shows the job's log, which is fetched anew, or hides it.
  void press(const std::string& job);
  // The panel is closed, or the session has ended: nobody waits for it any more.
  void discard();

 private:
  Task<> fetch(TechnicalLogRequest request, std::stop_token stop);

  API& api_;
  std::function<void()> told_;
  TechnicalLog log_;
  std::stop_source asked_;
  TaskScope tasks_;
};

}  // namespace vellix
