#include "platform/qt/HttpLaneQueue.hpp"

#include <QtGlobal>
#include <system_error>
#include <thread>
#include <utility>

namespace vellix {

// A manager that choked on an answer, or was stopped in the middle of one, may fail or hold up what
// follows, and its deletion waits seconds for its own inner thread: once retired it is deleted
// where nobody waits for it.
class HttpLaneQueue::Manager {
 public:
  Manager() = default;
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;
  ~Manager() {
    if (!retired_) {
      delete access_;
      return;
    }
    access_->moveToThread(nullptr);
    try {
      std::thread([access = access_] { delete access; }).detach();
    } catch (const std::system_error& noThread) {
      // Better to keep it than to wait here.
      qWarning("A network manager is kept: %s", noThread.what());
    }
  }

  QNetworkAccessManager* access() const { return access_; }
  void retire() { retired_ = true; }

 private:
  QNetworkAccessManager* access_ = new QNetworkAccessManager;
  bool retired_ = false;
};

HttpLaneQueue::HttpLaneQueue(const ExchangeLimits& limits, Answer answer)
    : limits_(limits), answer_(std::move(answer)) {}

HttpLaneQueue::~HttpLaneQueue() {
  for (const auto& [id, exchange] : running_) delete exchange;
}

void HttpLaneQueue::add(std::uint64_t id, HttpRequest request) {
  waiting_.push_back({id, std::move(request)});
  startNext();
}

void HttpLaneQueue::drop(std::uint64_t id) {
  std::erase_if(waiting_, [id](const Waiting& waiting) { return waiting.id == id; });
  const auto found = running_.find(id);
  if (found == running_.end()) return;
  delete found->second;
  running_.erase(found);
  retireManager();
  startNext();
}

void HttpLaneQueue::startNext() {
  while (!waiting_.empty() && running_.size() < kMostInALane) {
    Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    const auto id = next.id;
    auto* exchange =
        new HttpExchange(std::move(next.request), limits_,
                         [this, id](HttpResult result) { ended(id, std::move(result)); });
    running_[id] = exchange;
    if (!manager_) manager_ = std::make_shared<Manager>();
    exchange->start({manager_, manager_->access()});
  }
}

void HttpLaneQueue::ended(std::uint64_t id, HttpResult result) {
  const auto found = running_.find(id);
  HttpExchange* exchange = found->second;
  running_.erase(found);
  if (exchange->leavesManagerSuspect()) retireManager();
  exchange->deleteLater();
  answer_(id, std::move(result));
  startNext();
}

// The others under way keep the old manager until they end.
void HttpLaneQueue::retireManager() {
  if (manager_) manager_->retire();
  manager_.reset();
}

}  // namespace vellix
