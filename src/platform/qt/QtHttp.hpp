// HTTP over Qt's network access, on a thread of its own.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "platform/ports/pictures.hpp"
#include "platform/qt/HandOver.hpp"
#include "platform/qt/HttpExchange.hpp"

class QThread;

namespace vellix {

// Calls and pictures wait for one another within their lanes, so none may trickle for ever. A board
// of 10,000 tickets is a third of what a call takes.
struct HttpLimits {
  ExchangeLimits calls{.answer = std::int64_t{32} << 20, .whole = kLongestExchange};
  ExchangeLimits pictures{.answer = kMostEncoded, .whole = kLongestExchange};
  ExchangeLimits transfers{.answer = std::int64_t{512} << 20};

  static constexpr Milliseconds kLongestExchange{10 * 60'000};
};

// Made, used and ended on the main thread, while the QCoreApplication lives. Its end is quick:
// what is under way then never resolves.
class QtHttp : public Http {
 public:
  explicit QtHttp(HttpLimits limits = {});
  ~QtHttp() override;
  QtHttp(const QtHttp&) = delete;
  QtHttp& operator=(const QtHttp&) = delete;

  Pending<HttpResult> send(HttpRequest request, std::stop_token stop) override;

 private:
  class Lanes;
  struct Running {
    Resolver<HttpResult> resolver;
    HttpLane lane;
    std::optional<std::stop_callback<std::function<void()>>> stop;
  };

  void cancel(std::uint64_t id);
  void finish(std::uint64_t id, HttpResult result);

  HandOver over_;
  std::map<std::uint64_t, Running> running_;
  std::uint64_t lastId_ = 0;
  QThread* thread_;
  Lanes* lanes_;  // lives and ends on the thread
};

}  // namespace vellix
