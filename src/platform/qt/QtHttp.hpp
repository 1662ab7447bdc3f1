// HTTP over Qt's network access, on a thread of its own.
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "platform/ports/http.hpp"

class QThread;

namespace vellix {

// The longest answer that each lane takes, in bytes as they are handed on.
struct HttpLimits {
  std::int64_t calls = std::int64_t{64} << 20;
  std::int64_t pictures = std::int64_t{64} << 20;
  std::int64_t transfers = std::int64_t{512} << 20;
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

  QObject context_;
  std::map<std::uint64_t, Running> running_;
  std::uint64_t lastId_ = 0;
  QThread* thread_;
  Lanes* lanes_;  // lives and ends on the thread
};

}  // namespace vellix
