// The requests of one lane, on the network thread.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "platform/qt/HttpExchange.hpp"

namespace vellix {

// What is too many at once waits here and not inside the manager, so that its time-out counts from
// when it is really on its way.
class HttpLaneQueue {
 public:
  using Answer = std::function<void(std::uint64_t id, HttpResult)>;

  HttpLaneQueue(const ExchangeLimits& limits, Answer answer);
  ~HttpLaneQueue();
  HttpLaneQueue(const HttpLaneQueue&) = delete;
  HttpLaneQueue& operator=(const HttpLaneQueue&) = delete;

  void add(std::uint64_t id, HttpRequest request);
  // Ends it without an answer.
  void drop(std::uint64_t id);

 private:
  struct Waiting {
    std::uint64_t id;
    HttpRequest request;
  };
  class Manager;

  void startNext();
  void ended(std::uint64_t id, HttpResult result);
  void retireManager();

  const ExchangeLimits limits_;
  const Answer answer_;
  std::shared_ptr<Manager> manager_;
  std::deque<Waiting> waiting_;
  std::map<std::uint64_t, HttpExchange*> running_;
};

}  // namespace vellix
