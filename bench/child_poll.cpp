// A poll that brings nothing new, with the whole program up, against the bare request.
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <algorithm>

#include "Desk.hpp"
#include "WatchedPictures.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"
#include "store/open_page.hpp"

namespace vellix::bench {
namespace {

constexpr int kRequests = 60;  // of a round

Task<> poll(Store& store, int times, bool* ended) {
  for (int i = 0; i < times; ++i) {
    auto refresh = store.refresh();
    co_await std::move(refresh);
  }
  *ended = true;
}

class BarePoll {
 public:
  BarePoll(const std::string& server, const std::string& token, const std::string& tag)
      : request_(QUrl(QString::fromStdString(server + "/api/state"))) {
    request_.setRawHeader("User-Agent",
                          "Vellix-Mac/" + QByteArray::fromStdString(API::shortVersion()));
    request_.setRawHeader("Authorization", "Bearer " + QByteArray::fromStdString(token));
    request_.setRawHeader("If-None-Match", QByteArray::fromStdString(tag));
  }

  // False when one of the answers was not a 304.
  bool run(int times) {
    left_ = times;
    good_ = true;
    next();
    return waitUntil([this] { return left_ == 0; }) && good_;
  }

 private:
  void next() {
    QNetworkReply* reply = manager_.get(request_);
    QObject::connect(reply, &QNetworkReply::finished, &manager_, [this, reply] {
      reply->readAll();
      const auto status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
      good_ = good_ && status.toInt() == 304;
      reply->deleteLater();
      if (--left_ > 0) next();
    });
  }

  QNetworkAccessManager manager_;
  QNetworkRequest request_;
  int left_ = 0;
  bool good_ = true;
};

void measurePolls(Desk& desk, const std::string& server, const std::string& token) {
  BarePoll bare(server, token, desk.store().etag.value_or(""));
  SignalCount told;
  desk.watchModels(told);
  const FileItem* record = &desk.store().board()->files.front();
  const int frames = desk.frames().count();
  int rounds = 0;
  int signalled = 0;
  bool good = true;
  TaskScope tasks;
  const auto ours = [&] {
    const int before = told.count();
    bool ended = false;
    const double start = cpuOfProcess();
    tasks.start(poll(desk.store(), kRequests, &ended));
    good = waitUntil([&] { return ended; }) && good;
    const double took = cpuOfProcess() - start;
    ++rounds;
    if (told.count() != before) ++signalled;
    return took / kRequests;
  };
  const auto theirs = [&] {
    const double start = cpuOfProcess();
    good = bare.run(kRequests) && good;
    return (cpuOfProcess() - start) / kRequests;
  };
  const auto [our, their] = alternate(ours, theirs);
  tell({"a poll that is answered 304 (CPU of all threads)", our, their, "ms", 1.3});
  if (!good) tellFault("a poll was not answered 304");
  // Now and then a word of time moves on, and is rightly told.
  if (2 * signalled > rounds) tellFault("a poll without news made a model signal");
  if (desk.frames().count() != frames) tellFault("a poll without news painted a frame");
  if (&desk.store().board()->files.front() != record) {
    tellFault("a poll without news made the records anew");
  }
}

bool areAtHand(WatchedPictures& pictures, const Page& page) {
  const auto isAtHand = [&](const std::optional<std::string>& key) {
    return !key || pictures.isAtHand(QString::fromStdString(*key));
  };
  const auto refs = page.refs.value_or(std::map<std::string, RefPage>{});
  return isAtHand(page.img) &&
         std::ranges::all_of(refs, [&](const auto& ref) { return isAtHand(ref.second.img); });
}

// The next page's shown pictures are there before anybody asks for them.
void stepToNeighbour(Desk& desk) {
  WatchedPictures watched(desk.pictures());
  PictureSource& before = desk.pictures();
  desk.setPictures(watched);
  const RemoteImage* page = desk.page();
  desk.frames().settle();
  const QString shown = page->key();
  const int waits = watched.waits();
  const int step = desk.compare().bar()["last"].toBool() ? -1 : 1;
  const FileDetail& detail = *desk.store().currentDetail();
  const Page& next = detail.file.pages->at(pageIndex(desk.store(), detail.file) + step);
  // The service paints them at the first request for them.
  if (!waitUntil([&] { return areAtHand(watched, next); }, 20'000, 20)) {
    tellFault("the next page's pictures were not made ready");
  }
  desk.compare().stepPage(step);
  if (!waitUntil([&] { return page->key() != shown && watched.given() == page->key(); })) {
    return tellFault("the next page was never shown");
  }
  if (watched.waits() > waits) tellFault("a page step to a neighbour had to wait for its picture");
  desk.frames().settle();
  desk.setPictures(before);
  desk.frames().settle();
}

}  // namespace

int pollChild(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const std::string server = argv[argc - 2];
  const std::string token = argv[argc - 1];
  Desk desk(token, Desk::Board::polled);
  if (!desk.shown()) return 1;
  const auto up = [&] {
    const RemoteImage* page = desk.page();
    return page && page->ready();
  };
  if (!waitUntil(up, 20'000, 20) || !desk.frames().settle()) {
    tellFault("the demo's board was never shown");
    return 1;
  }
  stepToNeighbour(desk);
  measurePolls(desk, server, token);
  return 0;
}

}  // namespace vellix::bench
