#include "platform/qt/QtHttp.hpp"

#include <QDeadlineTimer>
#include <QThread>
#include <memory>
#include <utility>

#include "platform/qt/HttpLaneQueue.hpp"

namespace vellix {
namespace {

constexpr int kPatienceAtEnd = 900;  // ms

}  // namespace

class QtHttp::Lanes : public QObject {
 public:
  Lanes(const HttpLimits& limits, const HttpLaneQueue::Answer& answer)
      : calls_(limits.calls, answer),
        pictures_(limits.pictures, answer),
        transfers_(limits.transfers, answer) {}

  HttpLaneQueue& of(HttpLane lane) {
    switch (lane) {
      case HttpLane::pictures:
        return pictures_;
      case HttpLane::transfers:
        return transfers_;
      case HttpLane::calls:
        break;
    }
    return calls_;
  }

 private:
  HttpLaneQueue calls_;
  HttpLaneQueue pictures_;
  HttpLaneQueue transfers_;
};

QtHttp::QtHttp(HttpLimits limits) : thread_(new QThread) {
  const auto answer = [this, door = over_.door()](std::uint64_t id, HttpResult result) {
    const auto shared = std::make_shared<HttpResult>(std::move(result));
    door([this, id, shared] { finish(id, std::move(*shared)); });
  };
  lanes_ = new Lanes(limits, answer);
  lanes_->moveToThread(thread_);
  QObject::connect(thread_, &QThread::finished, lanes_, &QObject::deleteLater);
  thread_->setObjectName("http");
  thread_->start();
}

QtHttp::~QtHttp() {
  running_.clear();
  thread_->quit();
  // A thread that is held up is left behind: it answers to nobody any more.
  if (thread_->wait(QDeadlineTimer(kPatienceAtEnd))) delete thread_;
}

Pending<HttpResult> QtHttp::send(HttpRequest request, std::stop_token stop) {
  const auto id = ++lastId_;
  Running& running = running_[id];
  running.lane = request.lane;
  const auto pending = running.resolver.pending();
  if (stop.stop_requested()) {
    cancel(id);
    return pending;
  }
  const auto shared = std::make_shared<HttpRequest>(std::move(request));
  const auto add = [lanes = lanes_, id, shared] {
    lanes->of(shared->lane).add(id, std::move(*shared));
  };
  QMetaObject::invokeMethod(lanes_, add, Qt::QueuedConnection);
  if (stop.stop_possible()) {
    running.stop.emplace(std::move(stop), std::function<void()>([this, id] { cancel(id); }));
  }
  return pending;
}

// A stop may be asked for in the middle of anything, so it only sets things going. Whatever the
// exchange still answers finds nobody.
void QtHttp::cancel(std::uint64_t id) {
  const auto lane = running_.at(id).lane;
  const auto drop = [lanes = lanes_, lane, id] { lanes->of(lane).drop(id); };
  QMetaObject::invokeMethod(lanes_, drop, Qt::QueuedConnection);
  over_.door()([this, id] { finish(id, std::unexpected(HttpError::cancelled)); });
}

void QtHttp::finish(std::uint64_t id, HttpResult result) {
  const auto found = running_.find(id);
  if (found == running_.end()) return;
  const Resolver<HttpResult> resolver = found->second.resolver;
  running_.erase(found);
  resolver(std::move(result));
}

}  // namespace vellix
