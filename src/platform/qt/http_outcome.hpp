// What a finished reply means to the port.
#pragma once

#include <QNetworkReply>

#include "platform/ports/http.hpp"

namespace vellix {

// Whether the error is only the name of an HTTP status whose answer came whole.
bool isAnswer(int status, QNetworkReply::NetworkError error);

HttpError failureOf(QNetworkReply::NetworkError error, bool machineHasNetwork);

// Whether any interface but the loopback is up with an address.
bool machineHasNetwork();

HttpResponse responseOf(const QNetworkReply& reply, std::string body);

// Whether fewer bytes of the body came than were announced. A compressed body is not judged.
bool isCutShort(const HttpResponse& response, const std::string& method, std::int64_t received);

}  // namespace vellix
