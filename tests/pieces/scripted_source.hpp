// A source of pictures that holds what the test puts in and answers when the test says so.
#pragma once

#include <QMap>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "pieces/PictureSource.hpp"

namespace vellix {

class ScriptedSource : public PictureSource {
 public:
  struct Request {
    QString key;
    QSize shown;
    QPointer<QObject> context;
    std::function<void(QImage)> done;
  };

  QImage atHand(const QString& key, QSize) override {
    ++looks;
    return held.value(key);
  }
  void bring(const QString& key, QSize shown, QObject* context,
             std::function<void(QImage)> done) override {
    requests.push_back({key, shown, context, std::move(done)});
  }

  void answer(std::size_t index, const QImage& image) {
    const Request request = std::exchange(requests.at(index), {});
    if (request.context) request.done(image);
  }

  QMap<QString, QImage> held;  // at hand, by key
  std::vector<Request> requests;
  int looks = 0;
};

}  // namespace vellix
