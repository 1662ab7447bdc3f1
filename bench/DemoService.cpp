#include "DemoService.hpp"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include "records/json.hpp"

namespace vellix::bench {
namespace {

constexpr int kPatience = 30'000;  // ms
constexpr const char* kAnnounced = "listening on ";

}  // namespace

DemoService::DemoService() {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(QCoreApplication::applicationDirPath() + "/vellix_demo_service",
                 {"--port", "0", "--no-colleague", "--until-stdin-closes"});
  if (!process_.waitForReadyRead(kPatience)) return;
  const QByteArray line = process_.readLine().trimmed();
  if (line.startsWith(kAnnounced)) server_ = line.mid(qstrlen(kAnnounced)).toStdString();
}

DemoService::~DemoService() {
  process_.closeWriteChannel();
  if (!process_.waitForFinished(5000)) process_.kill();
  process_.waitForFinished(1000);
}

QByteArray DemoService::post(const std::string& path, const std::string& token,
                             const QByteArray& json) {
  QNetworkAccessManager manager;
  QNetworkRequest request(QUrl(QString::fromStdString(server_ + path)));
  request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
  request.setRawHeader("Authorization", "Bearer " + QByteArray::fromStdString(token));
  const auto reply = std::unique_ptr<QNetworkReply>(manager.post(request, json));
  QEventLoop loop;
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
  loop.exec();
  return reply->readAll();
}

std::string DemoService::signIn() {
  const QByteArray json =
      post("/api/login/exchange", "", R"({"code":"demo-renny","state":"","device":"bench"})");
  const auto answer = decode<SignInAnswer>(json.toStdString());
  return answer ? answer->token : std::string{};
}

}  // namespace vellix::bench
