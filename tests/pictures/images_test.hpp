// A picture cache over scripted ports.
#pragma once

#include <gtest/gtest.h>

#include <deque>

#include "pictures/images.hpp"
#include "support/awaiting.hpp"
#include "support/desk.hpp"
#include "support/routes.hpp"
#include "support/scripted_pictures.hpp"

namespace vellix {

class ImagesTest : public testing::Test {
 protected:
  Desk desk;
  Routes routes{desk.http};
  FakePictureFiles files;
  ScriptedDecoder decoder{desk.time, files};
  std::optional<Images> made{std::in_place, desk.api, desk.time, decoder, files};
  std::deque<std::optional<PictureHandle>> asked;  // in the order of `ask`

  Images& images() { return *made; }
  // As after a restart: only the disk is left.
  void restart() { made.emplace(desk.api, desk.time, decoder, files); }

  static std::string lineOf(const std::string& key) { return "GET api/blob/" + key; }
  void serve(const std::string& key, const std::string& bytes) {
    routes.set(lineOf(key), answerOf(200, bytes));
  }
  // Asks; the answer is none until it is in.
  std::optional<PictureHandle>& ask(std::optional<std::string> key, PictureWant want = {}) {
    auto& place = begin(std::move(key), std::move(want));
    desk.time.run();
    return place;
  }
  // The same, within one turn with what follows.
  std::optional<PictureHandle>& begin(std::optional<std::string> key, PictureWant want = {}) {
    auto& place = asked.emplace_back();
    desk.tasks.start(deliver(images().image(std::move(key), std::move(want)), &place));
    return place;
  }
  PictureHandle fetched(const std::string& key) {
    auto& place = ask(key);
    desk.time.run();
    return place.value();
  }
  std::size_t requests(const std::string& key = {}) { return desk.http.count(lineOf(key)); }
};

}  // namespace vellix
