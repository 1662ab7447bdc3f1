#include "platform/qt/HttpExchange.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/qt/http_outcome.hpp"

namespace vellix {
namespace {

constexpr double kLongestTimeout = 24.0 * 60 * 60 * 1000;
// What the library may hold that has not been read. The connection fills up behind it, so that what
// comes faster than it is read waits with its sender.
constexpr qint64 kReadAhead = qint64{256} << 10;

int timerMilliseconds(Milliseconds timeout) {
  const double count = timeout.count();
  return static_cast<int>(std::ceil(std::clamp(count, 1.0, kLongestTimeout)));
}

class BytesBody : public HttpBody {
 public:
  explicit BytesBody(std::string bytes) : bytes_(std::move(bytes)) {}
  std::int64_t size() const override { return static_cast<std::int64_t>(bytes_.size()); }
  std::optional<std::size_t> read(char* to, std::size_t most) override {
    const std::size_t count = bytes_.copy(to, most, taken_);
    taken_ += count;
    return count;
  }

 private:
  const std::string bytes_;
  std::size_t taken_ = 0;
};

// An empty body is a body too: without a device the request would be sent twice.
std::shared_ptr<HttpBody> bodyOf(HttpRequest& request) {
  if (request.stream) return std::move(request.stream);
  std::string bytes = request.body ? std::move(*request.body) : std::string();
  return std::make_shared<BytesBody>(std::move(bytes));
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

QNetworkRequest networkRequest(const HttpRequest& request, const QUrl& url, qint64 mostBytes) {
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
  // Over HTTP/2 the library takes in all that comes, read or not.
  out.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  // Bombs are told by how much they unpack to. That much is read in any case, and text may well be
  // packed as tightly.
  out.setDecompressedSafetyCheckThreshold(mostBytes);
  // A raw download is compared with its announced length, so it comes as it is.
  if (request.lane == HttpLane::transfers) out.setRawHeader("Accept-Encoding", "identity");
  for (const auto& [name, value] : request.headers) {
    out.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  return out;
}

}  // namespace

HttpExchange::HttpExchange(HttpRequest request, const ExchangeLimits& limits,
                           std::function<void(HttpResult)> done)
    : request_(std::move(request)), limits_(limits), done_(std::move(done)) {
  idle_.setInterval(timerMilliseconds(request_.timeout));
  if (limits_.whole) whole_.setInterval(timerMilliseconds(*limits_.whole));
  for (QTimer* timer : {&idle_, &whole_}) {
    timer->setSingleShot(true);
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
  if (limits_.whole) whole_.start();
}

QNetworkReply* HttpExchange::sendThrough(QNetworkAccessManager& manager) {
  const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(request_.url), QUrl::StrictMode);
  if (!isSendable(request_, url)) return nullptr;
  QNetworkRequest out =
      networkRequest(request_, url, request_.sink ? limits_.sunk : limits_.answer);
  if (request_.method == "GET") return manager.get(out);
  if (request_.method == "HEAD") return manager.head(out);
  auto body = bodyOf(request_);
  out.setHeader(QNetworkRequest::ContentLengthHeader, static_cast<qint64>(body->size()));
  upload_ = std::make_unique<UploadDevice>(
      std::move(body), [this] { progressed(); }, [this] { bodyLost(); });
  return manager.sendCustomRequest(out, QByteArray::fromStdString(request_.method), upload_.get());
}

void HttpExchange::followReply() {
  QNetworkReply* reply = reply_.get();
  connect(reply, &QNetworkReply::socketStartedConnecting, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::encrypted, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::requestSent, this, &HttpExchange::sent);
  connect(reply, &QNetworkReply::uploadProgress, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::metaDataChanged, this, &HttpExchange::judgeLength);
  connect(reply, &QNetworkReply::redirected, this, &HttpExchange::progressed);
  connect(reply, &QNetworkReply::readyRead, this, &HttpExchange::readSome);
  reply->setReadBufferSize(kReadAhead);
  // An early failure is told inside the call that sends, so it is taken a turn later.
  connect(reply, &QNetworkReply::finished, this, &HttpExchange::finished, Qt::QueuedConnection);
  if (reply->isFinished()) {
    QMetaObject::invokeMethod(this, &HttpExchange::finished, Qt::QueuedConnection);
  }
}

void HttpExchange::progressed() {
  if (done_ && idle_.isActive()) idle_.start();
}

// Told in the midst of a reading, which has to end first.
void HttpExchange::bodyLost() {
  QMetaObject::invokeMethod(this, [this] { abort(HttpError::bodyLost); }, Qt::QueuedConnection);
}

void HttpExchange::sent() {
  connected_ = true;
  progressed();
}

int HttpExchange::status() const {
  return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

std::int64_t HttpExchange::mostBytes() const {
  if (refuses()) return limits_.refusal;
  return request_.sink ? limits_.sunk : limits_.answer;
}

// What says beforehand that it is too long need not come.
void HttpExchange::judgeLength() {
  progressed();
  const auto length = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
  const bool hasBody = request_.method != "HEAD" && !refuses();
  if (hasBody && length > mostBytes()) abort(HttpError::tooLarge);
}

void HttpExchange::readSome() {
  if (!done_) return;
  progressed();
  const std::int64_t most = mostBytes();
  std::array<char, 65'536> chunk;
  qint64 count = 0;
  while ((count = reply_->read(chunk.data(), chunk.size())) > 0) {
    received_ += count;
    if (received_ > most && !refuses()) return abort(HttpError::tooLarge);
    if (!take({chunk.data(), static_cast<std::size_t>(count)})) return abort(HttpError::notKept);
    if (received_ <= most) continue;
    body_.resize(static_cast<std::size_t>(most));
    stopReply();
    return concludeWith(responseOf(*reply_, std::move(body_)));
  }
}

bool HttpExchange::take(std::string_view piece) {
  if (sinks()) return request_.sink->write(piece);
  body_.append(piece);
  return true;
}

void HttpExchange::finished() {
  readSome();
  if (!done_) return;
  const auto error = reply_->error();
  if (!isAnswer(status(), error)) {
    const HttpError reason = reasonOf(error);
    suspect_ = reason == HttpError::notHttp;
    return conclude(std::unexpected(reason));
  }
  HttpResponse response = responseOf(*reply_, std::move(body_));
  if (isCutShort(response, request_.method, received_)) {
    return conclude(std::unexpected(HttpError::connectionLost));
  }
  concludeWith(std::move(response));
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
  stopReply();
  conclude(std::unexpected(reason));
}

void HttpExchange::stopReply() {
  suspect_ = true;
  // This may be told within a signal of the reply itself: the reply is stopped with the exchange.
  reply_->disconnect(this);
}

void HttpExchange::concludeWith(HttpResponse response) {
  if (request_.reader) request_.reader(response);
  conclude(std::move(response));
}

void HttpExchange::conclude(HttpResult result) {
  if (!done_) return;
  idle_.stop();
  whole_.stop();
  request_.sink.reset();
  const auto done = std::exchange(done_, nullptr);
  done(std::move(result));
}

}  // namespace vellix
