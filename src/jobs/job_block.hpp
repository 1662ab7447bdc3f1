// What one job on the Mac mini is at, in a reviewer's words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct StepView {
  std::string key;    // its place among all of the steps
  bool live = false;  // at work: it spins, and has no icon
  std::string icon;
  std::string tone;
  std::string text;
  bool operator==(const StepView&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepView, (), (key, live, icon, tone, text))

struct StepsListView {
  std::string earlier;  // how many are left out in front; empty for none
  std::vector<StepView> rows;
  bool operator==(const StepsListView&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepsListView, (), (earlier, rows))

struct ResultLineView {
  std::string key;
  std::string text;
  std::string icon;
  std::string tone;
  bool operator==(const ResultLineView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ResultLineView, (), (key, text, icon, tone))

// A job that has ended. `tone` is one of the theme's tones, or "muted".
struct ResultBlockView {
  std::string icon;
  std::string title;
  std::string tone;
  std::string finished;  // when; empty when it is not told
  std::vector<ResultLineView> lines;
  std::string by;  // who asked for it; empty for nobody
  bool operator==(const ResultBlockView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ResultBlockView, (), (icon, title, tone, finished, lines, by))

struct JobBlockView {
  std::string key;   // the job's id
  std::string kind;  // "queued", "running", "stuck" or "result"; empty for no job
  std::string icon;  // as what follows, of what has not ended
  std::string tone;
  std::string title;
  std::string line;  // under the title: what it does, waits for or can be done about it
  StepsListView steps;
  std::string footer;
  std::string stopKey;    // busy while the request to stop is on its way; empty without "Stop"
  bool stopping = false;  // and it is
  ResultBlockView result;
  bool operator==(const JobBlockView&) const = default;
};
BOOST_DESCRIBE_STRUCT(JobBlockView, (),
                      (key, kind, icon, tone, title, line, steps, footer, stopKey, stopping,
                       result))

// `action` is what the button that starts such a job is called.
JobBlockView jobBlock(const Store& store, const Job& job, std::string_view action, Moment now,
                      const Calendar& calendar);

ResultBlockView resultBlock(const Store& store, const Job& job, Moment now,
                            const Calendar& calendar);

// The last of the steps spins while the job is `live`.
StepsListView stepsList(const std::vector<std::string>& steps, bool live);

// Of the lines that a long wait is passed with, the nth; they begin again after the last, and
// before the first.
std::string workingLine(std::string_view who, Int n);

// It waits, is at work or has stopped answering.
bool standsOpen(const Job& job);
// The request to stop it is on its way.
bool isBeingStopped(const Store& store, const Job& job);
// Stops the job of this id that the board tells of, if it stands open and is not being stopped.
void stopJob(Store& store, const std::string& id);

}  // namespace vellix
