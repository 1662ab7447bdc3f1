// A source of pictures that holds what the test puts in and answers when the test says so.
#pragma once

#include <QMap>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "pictures/PictureSource.hpp"

namespace vellix {

class ScriptedSource : public PictureSource {
 public:
  struct Request {
    QString key;
    PictureRoom room;
    QPointer<QObject> context;
    std::function<void(Pixels)> done;
  };

  Pixels atHand(const QString& key, const PictureRoom&) override {
    ++looks;
    return held.value(key);
  }
  void bring(const QString& key, const PictureRoom& room, QObject* context,
             std::function<void(Pixels)> done) override {
    requests.push_back({key, room, context, std::move(done)});
  }

  void answer(std::size_t index, const Pixels& pixels) {
    const Request request = std::exchange(requests.at(index), {});
    if (request.context) request.done(pixels);
  }

  QMap<QString, Pixels> held;  // at hand, by key
  std::vector<Request> requests;
  int looks = 0;
};

}  // namespace vellix
