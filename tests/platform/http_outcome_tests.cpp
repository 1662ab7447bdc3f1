#include "platform/qt/http_outcome.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

TEST(HttpOutcome, NamesTheFailure) {
  struct Row {
    QNetworkReply::NetworkError error;
    bool network;
    HttpError expected;
  };
  const Row rows[] = {
      {QNetworkReply::TemporaryNetworkFailureError, true, HttpError::notConnected},
      {QNetworkReply::NetworkSessionFailedError, true, HttpError::notConnected},
      {QNetworkReply::UnknownNetworkError, false, HttpError::notConnected},
      {QNetworkReply::UnknownNetworkError, true, HttpError::other},
      {QNetworkReply::HostNotFoundError, false, HttpError::notConnected},
      {QNetworkReply::HostNotFoundError, true, HttpError::other},
      {QNetworkReply::ConnectionRefusedError, false, HttpError::other},
      {QNetworkReply::SslHandshakeFailedError, true, HttpError::other},
      {QNetworkReply::InsecureRedirectError, true, HttpError::other},
      {QNetworkReply::TooManyRedirectsError, true, HttpError::other},
      {QNetworkReply::RemoteHostClosedError, true, HttpError::connectionLost},
      {QNetworkReply::ContentReSendError, true, HttpError::connectionLost},
      {QNetworkReply::TimeoutError, true, HttpError::timedOut},
      {QNetworkReply::ProtocolFailure, true, HttpError::notHttp},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(failureOf(row.error, row.network), row.expected) << row.error << row.network;
  }
}

TEST(HttpOutcome, TellsAnAnswerFromAFailureThatCameWithAStatus) {
  EXPECT_TRUE(isAnswer(200, QNetworkReply::NoError));
  EXPECT_TRUE(isAnswer(404, QNetworkReply::ContentNotFoundError));
  EXPECT_TRUE(isAnswer(400, QNetworkReply::ProtocolInvalidOperationError));
  EXPECT_TRUE(isAnswer(503, QNetworkReply::ServiceUnavailableError));
  EXPECT_TRUE(isAnswer(429, QNetworkReply::UnknownContentError));
  EXPECT_TRUE(isAnswer(407, QNetworkReply::ProxyAuthenticationRequiredError));
  EXPECT_FALSE(isAnswer(0, QNetworkReply::NoError));
  EXPECT_FALSE(isAnswer(200, QNetworkReply::RemoteHostClosedError));
  EXPECT_FALSE(isAnswer(500, QNetworkReply::RemoteHostClosedError));
  EXPECT_FALSE(isAnswer(200, QNetworkReply::UnknownContentError));
  EXPECT_FALSE(isAnswer(413, QNetworkReply::ContentReSendError));
  EXPECT_FALSE(isAnswer(302, QNetworkReply::InsecureRedirectError));
}

}  // namespace
}  // namespace vellix
