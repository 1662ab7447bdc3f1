// A window that shows what the program shows, with the least code that does: what the program's
// start, memory and rest are compared with.
//
//   vellix_bench_bare START SECONDS SERVER TOKEN SCENE [PICTURE]
//
// It tells the same figures as the program's own child does. When it is to rest it asks the service
// as often as the program does, for without that there is nothing to compare a rest with. Where a
// file is named, a picture of the window is left there.
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPainter>
#include <QQmlApplicationEngine>
#include <QQmlNetworkAccessManagerFactory>
#include <QQuickImageProvider>
#include <QQuickWindow>
#include <QSvgRenderer>
#include <cstdlib>
#include <optional>

#include "resting.hpp"

namespace {

constexpr int kPause = 5000;  // ms, from an answer to the next request

// Every request bears the session's token.
class Manager : public QNetworkAccessManager {
 public:
  Manager(QByteArray token, QObject* parent)
      : QNetworkAccessManager(parent), token_(std::move(token)) {}

 protected:
  QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request,
                               QIODevice* body) override {
    QNetworkRequest signedIn(request);
    signedIn.setRawHeader("Authorization", "Bearer " + token_);
    return QNetworkAccessManager::createRequest(operation, signedIn, body);
  }

 private:
  QByteArray token_;
};

class Managers : public QQmlNetworkAccessManagerFactory {
 public:
  explicit Managers(QByteArray token) : token_(std::move(token)) {}
  QNetworkAccessManager* create(QObject* parent) override { return new Manager(token_, parent); }

 private:
  QByteArray token_;
};

// The program's symbols, as NAME#COLOUR.
class Symbols : public QQuickImageProvider {
 public:
  Symbols() : QQuickImageProvider(Image) {}
  QImage requestImage(const QString& id, QSize* size, const QSize& wanted) override {
    const auto colour = id.indexOf('#');
    QFile file(":/symbols/" + id.left(colour) + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    const auto name = QColor(id.mid(colour)).name();
    QSvgRenderer drawing(file.readAll().replace("currentColor", name.toLatin1()));
    QImage image(wanted, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    *size = wanted;
    return image;
  }
};

class Poll {
 public:
  Poll(const QString& server, const QByteArray& token)
      : manager_(token, nullptr), request_(QUrl(server + "/api/state")) {
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
  Manager manager_;
  QNetworkRequest request_;
  QTimer pause_;
};

}  // namespace

int main(int argc, char* argv[]) {
  using namespace vellix::bench;
  if (argc != 6 && argc != 7) return 2;
  const double start = std::atof(argv[1]);
  const double seconds = std::atof(argv[2]);
  const QString server = argv[3];
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QGuiApplication application{argc, argv};
  QFile scene(argv[5]);
  if (!scene.open(QIODevice::ReadOnly)) return 2;
  Managers managers(argv[4]);
  QQmlApplicationEngine engine;
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
  engine.setNetworkAccessManagerFactory(&managers);
  engine.addImageProvider("symbols", new Symbols);
  engine.setInitialProperties({{"scene", QJsonDocument::fromJson(scene.readAll()).toVariant()},
                               {"pictures", server + "/api/blob/"}});
  engine.load(QUrl{QStringLiteral("qrc:/qt/qml/Vellix/Bare/Bare.qml")});
  if (engine.rootObjects().isEmpty()) return 1;
  auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
  Frames frames(window);
  double painted = 0;
  frames.onFrame = [&] {
    if (painted > 0 || window->property("pagesToCome") != 0) return;
    painted = frames.lastAt();
    tellFigure("cpu to it", cpuOfProcess());
  };
  if (!waitUntil([&] { return painted > 0; })) return 1;
  tellFigure("first", painted - start);
  std::optional<Poll> poll;
  if (seconds > 0) poll.emplace(server, argv[4]).send();
  frames.settle(600);
  tellRest(frames, application, seconds);
  if (argc == 7 && !window->grabWindow().save(argv[6])) return 1;
  std::_Exit(0);
}
