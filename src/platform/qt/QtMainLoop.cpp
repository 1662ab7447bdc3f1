#include "platform/qt/QtMainLoop.hpp"

#include <QTimer>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vellix {
namespace {

constexpr double kLongestTimer = 24.0 * 60 * 60 * 1000;
constexpr double kPreciseUpTo = 1000;

}  // namespace

struct QtMainLoop::Sleep {
  using Stop = std::function<void()>;

  Resolver<> resolver;
  QTimer timer;
  std::optional<std::stop_callback<Stop>> stop;
};

QtMainLoop::QtMainLoop() = default;

QtMainLoop::~QtMainLoop() = default;

void QtMainLoop::post(std::function<void()> work) {
  QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

Moment QtMainLoop::now() const {
  return std::chrono::time_point_cast<Milliseconds>(std::chrono::system_clock::now());
}

Pending<> QtMainLoop::sleep(Milliseconds pause, std::stop_token stop) {
  const auto place = sleeps_.insert(sleeps_.end(), std::make_unique<Sleep>());
  Sleep& sleep = **place;
  const Pending<> pending = sleep.resolver.pending();
  sleep.timer.setSingleShot(true);
  arm(place, std::isnan(pause.count()) ? 0 : std::max(0.0, pause.count()));
  // The timer itself is the later turn: a stop only makes it due now. It may be asked for in the
  // middle of anything, so nothing is resolved here.
  if (stop.stop_possible()) {
    sleep.stop.emplace(std::move(stop), Sleep::Stop([this, place] { arm(place, 0); }));
  }
  return pending;
}

// A QTimer counts in int milliseconds, so a very long pause goes in steps.
void QtMainLoop::arm(Place place, double remaining) {
  QTimer& timer = (*place)->timer;
  const double step = std::min(remaining, kLongestTimer);
  timer.disconnect();
  if (remaining > step) {
    QObject::connect(&timer, &QTimer::timeout, &context_,
                     [this, place, rest = remaining - step] { arm(place, rest); });
  } else {
    QObject::connect(&timer, &QTimer::timeout, &context_, [this, place] { end(place); });
  }
  timer.setTimerType(step > kPreciseUpTo ? Qt::CoarseTimer : Qt::PreciseTimer);
  timer.start(static_cast<int>(std::ceil(step)));
}

void QtMainLoop::end(Place place) {
  // The slot that runs here belongs to the timer, so the timer goes a turn later.
  const std::shared_ptr<Sleep> ended = std::move(*place);
  sleeps_.erase(place);
  ended->stop.reset();
  post([ended] {});
  ended->resolver();
}

}  // namespace vellix
