#include "platform/qt/HttpExchange.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/qt/http_outcome.hpp"

namespace vellix {
namespace {

constexpr double kLongestTimeout = 24.0 * 60 * 60 * 1000;

int timerMilliseconds(Milliseconds timeout) {
  const double count = timeout.count();
  return static_cast<int>(std::ceil(std::clamp(count, 1.0, kLongestTimeout)));
}

bool breaksTheHead(const std::string& text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos;
}

bool isSendable(const HttpRequest& request, const QUrl& url) {
  if (!url.isValid() || url.host().isEmpty()) return false;
  if (url.scheme() != "http" && url.scheme() != "https") return false;
  if (request.method.empty() || breaksTheHead(request.method)) return false;
  return std::none_of(request.headers.begin(), request.headers.end(), [](const auto& header) {
    return header.first.empty() || breaksTheHead(header.first) || breaksTheHead(header.second);
  });
}

QNetworkRequest networkRequest(const HttpRequest& request, const QUrl& url) {
  QNetworkRequest out(url);
  out.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                   QNetworkRequest::SameOriginRedirectPolicy);
  out.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  out.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  out.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  out.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  out.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  out.setAttribute(QNetworkRequest::HttpPipeliningAllowedAttribute, false);
  out.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
  // A raw download is compared with its announced length, so it comes as it is.
  if (request.lane == HttpLane::transfers) out.setRawHeader("Accept-Encoding", "identity");
  for (const auto& [name, value] : request.headers) {
    out.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  return out;
}

}  // namespace

HttpExchange::HttpExchange(HttpRequest request, qint64 mostBytes,
                           std::function<void(HttpResult)> done)
    : request_(std::move(request)), mostBytes_(mostBytes), done_(std::move(done)) {
  for (QTimer* timer : {&idle_, &deadline_}) {
    timer->setSingleShot(true);
    timer->setInterval(timerMilliseconds(request_.timeout));
    connect(timer, &QTimer::timeout, this, [this] { abort(HttpError::timedOut); });
  }
}

HttpExchange::~HttpExchange() {
  if (!reply_) return;
  reply_->disconnect(this);
  if (reply_->isRunning()) reply_->abort();
}

void HttpExchange::start(std::shared_ptr<QNetworkAccessManager> manager) {
  manager_ = std::move(manager);
  reply_.reset(sendThrough(*manager_));
  if (!reply_) {
    QMetaObject::invokeMethod(
        this, [this] { conclude(std::unexpected(HttpError::other)); }, Qt::QueuedConnection);
    return;
  }
  followReply();
  idle_.start();
  if (request_.lane == HttpLane::calls) deadline_.start();
}

QNetworkReply* HttpExchange::sendThrough(QNetworkAccessManager& manager) {
  const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(request_.url), QUrl::StrictMode);
  if (!isSendable(request_, url)) return nullptr;
  QNetworkRequest out = networkRequest(request_, url);
  if (request_.method == "GET") return manager.get(out);
  if (request_.method == "HEAD") return manager.head(out);
  // An empty body is a body too: without a device the request would be sent twice.
  std::string body = request_.body ? std::move(*request_.body) : std::string();
  out.setHeader(QNetworkRequest::ContentLengthHeader, static_cast<qint64>(body.size()));
  upload_ = std::make_unique<UploadDevice>(std::move(body), [this] { progressed(); });
  return manager.sendCustomRequest(out, QByteArray::fromStdString(request_.method), upload_.get());
}

void HttpExchange::followReply() {
  QNetworkReply* reply = reply_.get();
  connect(reply, &QNetworkReply::socketStartedConnecting, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::encrypted, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::requestSent, this, &HttpExchange::sent);
  connect(reply, &QNetworkReply::uploadProgress, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::metaDataChanged, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::redirected, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::readyRead, this, &HttpExchange::readSome);
  // An early failure is told inside the call that sends, so it is taken a turn later.
  connect(reply, &QNetworkReply::finished, this, &HttpExchange::finished, Qt::QueuedConnection);
  if (reply->isFinished()) {
    QMetaObject::invokeMethod(this, &HttpExchange::finished, Qt::QueuedConnection);
  }
}

void HttpExchange::progressed() {
  if (done_ && idle_.isActive()) idle_.start();
}

void HttpExchange::sent() {
  connected_ = true;
  progressed();
}

void HttpExchange::readSome() {
  if (!done_) return;
  progressed();
  std::array<char, 65'536> chunk;
  qint64 count = 0;
  while ((count = reply_->read(chunk.data(), chunk.size())) > 0) {
    body_.append(chunk.data(), static_cast<std::size_t>(count));
    if (static_cast<qint64>(body_.size()) > mostBytes_) return abort(HttpError::tooLarge);
  }
}

void HttpExchange::finished() {
  readSome();
  if (!done_) return;
  const auto error = reply_->error();
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (!isAnswer(status, error)) {
    const HttpError reason = reasonOf(error);
    suspect_ = reason == HttpError::notHttp;
    return conclude(std::unexpected(reason));
  }
  HttpResponse response = responseOf(*reply_, std::move(body_));
  if (isCutShort(response, request_.method)) {
    return conclude(std::unexpected(HttpError::connectionLost));
  }
  conclude(std::move(response));
}

HttpError HttpExchange::reasonOf(QNetworkReply::NetworkError error) const {
  if (error == QNetworkReply::NoError) return HttpError::notHttp;
  // A reset while writing comes under this name too.
  const bool begun = connected_ || (upload_ && upload_->begun());
  if (begun && error == QNetworkReply::UnknownNetworkError) return HttpError::connectionLost;
  return failureOf(error, machineHasNetwork());
}

void HttpExchange::abort(HttpError reason) {
  if (!done_) return;
  suspect_ = true;
  // This may be told within a signal of the reply itself: the reply is stopped with the exchange.
  reply_->disconnect(this);
  conclude(std::unexpected(reason));
}

void HttpExchange::conclude(HttpResult result) {
  if (!done_) return;
  idle_.stop();
  deadline_.stop();
  const auto done = std::exchange(done_, nullptr);
  done(std::move(result));
}

}  // namespace vellix
