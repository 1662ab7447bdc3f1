// One request on its way, on the network thread.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "platform/ports/http.hpp"
#include "platform/qt/UploadDevice.hpp"

namespace vellix {

class HttpExchange : public QObject {
 public:
  // `done` is called exactly once, not before `start` has returned, unless the exchange is
  // deleted first; it may only ask for a later deletion. `mostBytes` bounds the answer's body.
  HttpExchange(HttpRequest request, qint64 mostBytes, std::function<void(HttpResult)> done);
  ~HttpExchange() override;

  void start(std::shared_ptr<QNetworkAccessManager> manager);

  // Whether the manager may be stuck on what came: it was stopped in the middle, or is not HTTP.
  bool leavesManagerSuspect() const { return suspect_; }

 private:
  QNetworkReply* sendThrough(QNetworkAccessManager& manager);
  void followReply();
  void progressed();
  void sent();
  HttpError reasonOf(QNetworkReply::NetworkError error) const;
  void readSome();
  void finished();
  void abort(HttpError reason);
  void conclude(HttpResult result);

  HttpRequest request_;
  const qint64 mostBytes_;
  std::function<void(HttpResult)> done_;
  std::shared_ptr<QNetworkAccessManager> manager_;
  std::unique_ptr<UploadDevice> upload_;
  std::unique_ptr<QNetworkReply> reply_;
  std::string body_;
  QTimer idle_;
  QTimer deadline_;
  bool connected_ = false;
  bool suspect_ = false;
};

}  // namespace vellix
