// A bare window with a list: what the program's start, memory and rest are compared with.
//
//   vellix_bench_bare START SECONDS SERVER TOKEN
//
// It tells the same figures as the program's own child does. When it is to rest it asks the service
// as often as the program does, for without that there is nothing to compare a rest with.
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <cstdlib>
#include <optional>

#include "resting.hpp"

namespace {

constexpr int kPause = 5000;  // ms, from an answer to the next request

bool isRow(QQuickItem* item) { return item->objectName() == "row"; }

class Poll {
 public:
  Poll(const char* server, const char* token) : request_(QUrl(QString(server) + "/api/state")) {
    request_.setRawHeader("Authorization", QByteArray("Bearer ") + token);
    pause_.setSingleShot(true);
    QObject::connect(&pause_, &QTimer::timeout, [this] { send(); });
  }

  void send() {
    QNetworkReply* reply = manager_.get(request_);
    QObject::connect(reply, &QNetworkReply::finished, &manager_, [this, reply] {
      reply->readAll();
      request_.setRawHeader("If-None-Match", reply->rawHeader("ETag"));
      reply->deleteLater();
      pause_.start(kPause);
    });
  }

 private:
  QNetworkAccessManager manager_;
  QNetworkRequest request_;
  QTimer pause_;
};

}  // namespace

int main(int argc, char* argv[]) {
  using namespace vellix::bench;
  if (argc != 5) return 2;
  const double start = std::atof(argv[1]);
  const double seconds = std::atof(argv[2]);
  QGuiApplication application{argc, argv};
  QQmlApplicationEngine engine;
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
  engine.load(QUrl{QStringLiteral("qrc:/qt/qml/Vellix/Bare/Bare.qml")});
  if (engine.rootObjects().isEmpty()) return 1;
  auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
  Frames frames(window);
  double painted = 0;
  frames.onFrame = [&] {
    if (painted == 0 && findItem(window->contentItem(), isRow)) painted = frames.lastAt();
  };
  if (!waitUntil([&] { return painted > 0; })) return 1;
  tellFigure("first", painted - start);
  std::optional<Poll> poll;
  if (seconds > 0) poll.emplace(argv[3], argv[4]).send();
  frames.settle(600);
  tellRest(frames, application, seconds);
  std::_Exit(0);
}
