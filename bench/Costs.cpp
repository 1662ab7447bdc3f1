#include "Costs.hpp"

#include <QCoreApplication>
#include <QThread>

#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kStep = 16;              // ms of a glide in a frame
constexpr int kLongStep = 160;         // the same where nothing is worked out
constexpr int kLongestGlide = 1'000;   // ms: what goes on for longer turns for ever
constexpr double kQuiet = 6;           // ms without anything: it has come to rest
constexpr double kLongestFrame = 200;  // ms
constexpr double kPatience = 3'000;    // ms
constexpr unsigned long kPause = 500;  // µs
constexpr int kTurns = 6;

// The dispatcher takes what is most urgent alone, and a frame is the least: it comes once nothing
// else is due.
void turn(const Frames& frames) {
  const int before = frames.count();
  for (int i = 0; i < kTurns && frames.count() == before; ++i) QCoreApplication::processEvents();
}

}  // namespace

void Costs::Pace::go(int step) {
  now_ += step;
  advance();
  // What a glide lets go outside of any event would else wait for the end.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Costs::Costs(Frames& frames, std::function<bool()> isIdle)
    : frames_(frames), isIdle_(std::move(isIdle)) {
  pace_.install();
  frames_.onFrame = [this] {
    if (!cost_) return;
    note();
    if (++cost_->frames == 1) cost_->first = cost_->whole;
  };
}

void Costs::note() {
  const double now = cpuOfThread();
  const double took = now - mark_;
  mark_ = now;
  cost_->whole += took;
  // Before the first frame is all one: nothing of the action is on show yet.
  cost_->worst = std::max(cost_->worst, cost_->frames == 0 ? cost_->whole : took);
}

Cost Costs::of(const std::function<void()>& action) {
  Cost cost;
  cost_ = &cost;
  mark_ = cpuOfThread();
  action();
  settle(&cost);
  cost_ = nullptr;
  return cost;
}

Cost Costs::frame(const std::function<void()>& action, int step) {
  Cost cost;
  cost_ = &cost;
  mark_ = cpuOfThread();
  action();
  const double end = wallTime() + kLongestFrame;
  while (cost.frames == 0 && wallTime() < end) {
    if (pace_.isRunning()) pace_.go(step);
    turn(frames_);
  }
  cost_ = nullptr;
  return cost;
}

bool Costs::settle(Cost* cost) {
  const int step = cost ? kStep : kLongStep;
  const double end = wallTime() + kPatience;
  double quietSince = wallTime();
  double stepped = 0;
  int glided = 0;
  while (wallTime() < end) {
    const int frames = frames_.count();
    turn(frames_);
    if (frames_.count() != frames) {
      quietSince = wallTime();
      continue;
    }
    if (cost) note();
    const bool idle = isIdle_();
    // Looking on is no part of it.
    mark_ = cpuOfThread();
    // What turns until an answer comes turns for as long as that takes.
    if (pace_.isRunning() && glided < kLongestGlide && (idle || wallTime() - stepped >= step)) {
      stepped = wallTime();
      pace_.go(step);
      glided += step;
      quietSince = wallTime();
      continue;
    }
    if (!idle) quietSince = wallTime();
    if (wallTime() - quietSince >= kQuiet) return true;
    QThread::usleep(kPause);
  }
  tellFault(std::string("the window never came to rest: ") +
            (isIdle_() ? "it paints" : "something is still to come"));
  return false;
}

}  // namespace vellix::bench
