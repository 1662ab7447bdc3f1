// One request on its way, on the network thread.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/ports/http.hpp"
#include "platform/qt/UploadDevice.hpp"

namespace vellix {

struct ExchangeLimits {
  std::int64_t answer;                        // bytes of the body, as they are handed on
  std::int64_t sunk = std::int64_t{2} << 30;  // the same, of one that a sink takes
  // Bytes of the body of a status of 400 or more, which holds a sentence at best.
  std::int64_t refusal = std::int64_t{64} << 10;
  std::optional<Milliseconds> whole;  // from when the request goes out to the end of its answer
};

class HttpExchange : public QObject {
 public:
  // `done` is called exactly once, not before `start` has returned, unless the exchange is
  // deleted first; it may only ask for a later deletion.
  HttpExchange(HttpRequest request, const ExchangeLimits& limits,
               std::function<void(HttpResult)> done);
  ~HttpExchange() override;

  void start(std::shared_ptr<QNetworkAccessManager> manager);

  // Whether the manager may be stuck on what came: it was stopped in the middle, or is not HTTP.
  bool leavesManagerSuspect() const { return suspect_; }

 private:
  QNetworkReply* sendThrough(QNetworkAccessManager& manager);
  void followReply();
  void progressed();
  void bodyLost();
  void sent();
  HttpError reasonOf(QNetworkReply::NetworkError error) const;
  int status() const;
  bool refuses() const { return status() >= 400; }
  bool sinks() const { return request_.sink && !refuses(); }
  std::int64_t mostBytes() const;
  void judgeLength();
  bool take(std::string_view piece);
  void readSome();
  void finished();
  void abort(HttpError reason);
  void stopReply();
  void concludeWith(HttpResponse response);
  void conclude(HttpResult result);

  HttpRequest request_;
  const ExchangeLimits limits_;
  std::function<void(HttpResult)> done_;
  std::shared_ptr<QNetworkAccessManager> manager_;
  std::unique_ptr<UploadDevice> upload_;
  std::unique_ptr<QNetworkReply> reply_;
  std::string body_;  // what no sink took
  std::int64_t received_ = 0;
  QTimer idle_;
  QTimer whole_;
  bool connected_ = false;
  bool suspect_ = false;
};

}  // namespace vellix
