#include "platform/qt/http_outcome.hpp"

#include <QNetworkInterface>
#include <algorithm>

namespace vellix {
namespace {

bool isUsable(const QNetworkInterface& interface) {
  const auto flags = interface.flags();
  return flags.testFlag(QNetworkInterface::IsUp) && flags.testFlag(QNetworkInterface::IsRunning) &&
         !flags.testFlag(QNetworkInterface::IsLoopBack) && !interface.addressEntries().isEmpty();
}

bool hasNoBody(int status) { return status < 200 || status == 204 || status == 304; }

}  // namespace

bool isAnswer(int status, QNetworkReply::NetworkError error) {
  if (status < 100) return false;
  if (error == QNetworkReply::NoError) return true;
  if (status < 400 || error == QNetworkReply::ContentReSendError) return false;
  if (status == 407) return error == QNetworkReply::ProxyAuthenticationRequiredError;
  return (error >= QNetworkReply::ContentAccessDenied &&
          error <= QNetworkReply::UnknownContentError) ||
         error == QNetworkReply::ProtocolInvalidOperationError ||
         (error >= QNetworkReply::InternalServerError &&
          error <= QNetworkReply::UnknownServerError);
}

HttpError failureOf(QNetworkReply::NetworkError error, bool machineHasNetwork) {
  switch (error) {
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
      return HttpError::notConnected;
    // The name lookup and the socket say no more than this when the cable is out.
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::UnknownNetworkError:
      return machineHasNetwork ? HttpError::other : HttpError::notConnected;
    case QNetworkReply::RemoteHostClosedError:
    // The connection went away under an upload, which is never sent twice.
    case QNetworkReply::ContentReSendError:
      return HttpError::connectionLost;
    case QNetworkReply::TimeoutError:
      return HttpError::timedOut;
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolUnknownError:
      return HttpError::notHttp;
    default:
      return HttpError::other;
  }
}

bool machineHasNetwork() {
  const auto interfaces = QNetworkInterface::allInterfaces();
  return std::any_of(interfaces.begin(), interfaces.end(), isUsable);
}

HttpResponse responseOf(const QNetworkReply& reply, std::string body) {
  HttpResponse response;
  response.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  for (const auto& [name, value] : reply.rawHeaderPairs()) {
    response.headers[name.toLower().toStdString()] = value.toStdString();
  }
  response.body = std::move(body);
  return response;
}

bool isCutShort(const HttpResponse& response, const std::string& method, std::int64_t received) {
  if (method == "HEAD" || hasNoBody(response.status)) return false;
  if (response.header("content-encoding")) return false;
  const auto announced = response.header("content-length");
  return announced && QByteArray::fromStdString(*announced).trimmed().toLongLong() > received;
}

}  // namespace vellix
