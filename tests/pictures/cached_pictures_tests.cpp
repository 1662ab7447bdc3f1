// The pictures that views ask for, over real files and decodes and a scripted service.
#include "pictures/CachedPictures.hpp"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "pictures/QtPictureDecoder.hpp"
#include "pictures/pictures.hpp"
#include "platform/qt/QtPictureFiles.hpp"
#include "platform/waiting.hpp"
#include "support/desk.hpp"
#include "support/routes.hpp"

namespace vellix {
namespace {

constexpr QSize kWhole{400, 200};
const std::string kLine = "GET api/blob/a";

class PicturesTest : public testing::Test {
 protected:
  QTemporaryDir folder;
  Desk desk;
  Routes routes{desk.http};
  PixelCache pixels;
  QtPictureDecoder decoder{pixels};
  QtPictureFiles files{folder.path().toStdString()};
  Images images{desk.api, desk.time, decoder, files};
  std::optional<CachedPictures> pictures{std::in_place, images, pixels, desk.store()};
  std::optional<QObject> view{std::in_place};
  const std::string whole = encodedAs("jpg", testImage(kWhole.width(), kWhole.height()));
  const std::string torn = whole.substr(0, whole.size() / 2);
  std::vector<QImage> answers;

  void serve(const std::string& bytes) { routes.set(kLine, answerOf(200, bytes)); }
  void bring() {
    pictures->bring("a", kWhole, &*view,
                    [this](const Pixels& pixels) { answers.push_back(pixels.image); });
  }
  bool settles(const std::function<bool()>& condition) {
    return waitUntil([this, &condition] {
      desk.time.run();
      return condition();
    });
  }
  // Brings the picture and waits for the answer.
  QImage brought() {
    const auto before = answers.size();
    bring();
    EXPECT_EQ(answers.size(), before) << "an answer comes later";
    EXPECT_TRUE(settles([&] { return answers.size() > before; }));
    return answers.empty() ? QImage{} : answers.back();
  }
  static Task<> bringing(Task<PictureHandle> fetching) { co_await std::move(fetching); }
  std::size_t requests() { return desk.http.count(kLine); }
  QByteArray onDisk() {
    QFile file(folder.filePath("a"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

TEST_F(PicturesTest, AreBroughtOverTheNetworkOnceAndThenAtHand) {
  serve(whole);
  EXPECT_TRUE(pictures->atHand("a", kWhole).isNull());
  const QImage image = brought();
  EXPECT_EQ(image.size(), kWhole);
  EXPECT_EQ(pictures->atHand("a", kWhole).image.cacheKey(), image.cacheKey());
  EXPECT_EQ(brought().cacheKey(), image.cacheKey());
  EXPECT_EQ(requests(), 1U);
}

// Those of the first page too, and of the pages beside it.
TEST_F(PicturesTest, ThatComeAreMadeForTheRoomThatWaitsForThem) {
  serve(whole);
  const PictureRoom room({90, 45}, PictureFit::within, {90, 90});
  EXPECT_TRUE(pictures->atHand("a", room).isNull());
  auto fetching = images.image("a");
  TaskScope scope;
  scope.start(bringing(std::move(fetching)));
  ASSERT_TRUE(settles([this] { return images.heldInMemory() == 1; }));
  EXPECT_TRUE(isExact(pictures->atHand("a", room), room));
  EXPECT_EQ(pixels.bytesHeld(), 4 * 90 * 45);
}

TEST_F(PicturesTest, ComeFromTheDiskWithoutARequest) {
  files.write("a", whole);
  EXPECT_EQ(brought().size(), kWhole);
  EXPECT_EQ(requests(), 0U);
}

TEST_F(PicturesTest, WhoseFileHasGoneAreFetchedAnew) {
  files.write("a", whole);
  ASSERT_TRUE(images.cached("a"));
  ASSERT_TRUE(QFile::remove(folder.filePath("a")));
  serve(whole);
  EXPECT_EQ(brought().size(), kWhole);
  EXPECT_EQ(onDisk().toStdString(), whole);
  EXPECT_EQ(requests(), 1U);
}

TEST_F(PicturesTest, WhoseFileIsTornBehindAGoodHeaderAreFetchedAnew) {
  files.write("a", torn);
  serve(whole);
  EXPECT_EQ(brought().size(), kWhole);
  EXPECT_EQ(onDisk().toStdString(), whole);
  EXPECT_EQ(requests(), 1U);
}

TEST_F(PicturesTest, ThatCannotBeFetchedAnewAreNoneAfterOneRequestEach) {
  files.write("a", torn);
  for (const auto& answer : {answerOf(404), answerOf(200, torn), answerOf(500)}) {
    const auto before = requests();
    routes.set(kLine, answer);
    EXPECT_TRUE(brought().isNull());
    EXPECT_EQ(requests(), before + 1);
  }
  EXPECT_EQ(onDisk().toStdString(), torn);
}

TEST_F(PicturesTest, OfSeveralViewsAreFetchedAnewOnce) {
  files.write("a", torn);
  serve(whole);
  for (int i = 0; i < 3; ++i) bring();
  ASSERT_TRUE(settles([this] { return answers.size() == 3; }));
  for (const auto& image : answers) EXPECT_EQ(image.size(), kWhole);
  EXPECT_EQ(requests(), 1U);
}

TEST_F(PicturesTest, ThatBreakAgainAreFetchedAnewAgain) {
  serve(whole);
  for (std::size_t times = 1; times <= 2; ++times) {
    files.write("a", torn);
    PixelCache none;
    CachedPictures others(images, none, desk.store());
    bool told = false;
    others.bring("a", kWhole, &*view, [&told](const Pixels& pixels) { told = !pixels.isNull(); });
    EXPECT_TRUE(settles([&told] { return told; }));
    EXPECT_EQ(requests(), times);
  }
}

TEST_F(PicturesTest, TellNobodyWhoHasGone) {
  bring();
  ASSERT_TRUE(settles([this] { return requests() == 1; }));
  view.reset();
  desk.time.advance(Milliseconds{500});
  EXPECT_TRUE(desk.http.exchanges[0].resolver.resolved()) << "it was given up";
  view.emplace();
  serve(whole);
  EXPECT_FALSE(brought().isNull());
  EXPECT_EQ(answers.size(), 1U);
}

TEST_F(PicturesTest, AreAskedForByTheSizeThatTheyAreShownIn) {
  for (std::size_t i = 0; i < kMostInALane; ++i) {
    pictures->bring("b" + QString::number(i), {{500, 500}}, &*view, [](const Pixels&) {});
  }
  desk.time.run();
  pictures->bring("thumb", {{40, 60}}, &*view, [](const Pixels&) {});
  pictures->bring("page", {{400, 600}}, &*view, [](const Pixels&) {});
  desk.time.run();
  desk.http.answer(0, answerOf(404));
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.back().line(), "GET api/blob/page");
}

TEST_F(PicturesTest, ThatAnotherViewWaitsForAreNotGivenUp) {
  QObject other;
  pictures->bring("a", kWhole, &other, [this](const Pixels& one) { answers.push_back(one.image); });
  bring();
  ASSERT_TRUE(settles([this] { return requests() == 1; }));
  view.reset();
  desk.time.advance(Milliseconds{500});
  desk.http.answer(0, answerOf(200, whole));
  EXPECT_TRUE(settles([this] { return answers.size() == 1; }));
  EXPECT_FALSE(answers.at(0).isNull());
}

TEST_F(PicturesTest, TellNobodyWhoWentWhileTheyWereFetchedAnew) {
  files.write("a", torn);
  bring();
  ASSERT_TRUE(settles([this] { return requests() == 1; }));
  view.reset();
  desk.time.advance(Milliseconds{500});
  view.emplace();
  serve(whole);
  EXPECT_FALSE(brought().isNull());
  EXPECT_EQ(answers.size(), 1U);
}

// Whether the board has changed or not: the service is there.
TEST_F(PicturesTest, AreWorthAnotherTryAfterEachGoodPollAndNoOther) {
  QSignalSpy told(&*pictures, &PictureSource::worthAnotherTry);
  const auto tellsOn = [&](const HttpResult& answer) {
    routes.set("GET api/state", answer);
    told.clear();
    desk.time.advance(Milliseconds{5'000});
    desk.tasks.start(desk.store().refresh());
    desk.time.run();
    return told.count();
  };
  EXPECT_EQ(tellsOn(answerOf(200, jsonOf(boardOf({})), "\"b1\"")), 1);
  EXPECT_EQ(tellsOn(answerOf(304)), 1);
  EXPECT_EQ(tellsOn(answerOf(500)), 0);
  EXPECT_EQ(tellsOn(answerOf(200, "garbage")), 0);
  EXPECT_EQ(tellsOn(std::unexpected(HttpError::notConnected)), 0);
  EXPECT_EQ(tellsOn(answerOf(304)), 1);
}

TEST_F(PicturesTest, AreWorthAnotherTryTheMomentThatAllIsAskedForAnew) {
  QSignalSpy told(&*pictures, &PictureSource::worthAnotherTry);
  desk.store().requestRefresh();
  desk.time.run();
  EXPECT_EQ(told.count(), 1) << "the poll is still out";
  desk.http.answer(0, answerOf(500));
  desk.time.run();
  EXPECT_FALSE(desk.store().refreshing());
  EXPECT_EQ(told.count(), 1);
}

TEST_F(PicturesTest, MayEndWithRequestsOut) {
  files.write("a", torn);
  bring();
  pictures.reset();
  pictures.emplace(images, pixels, desk.store());
  serve(whole);
  EXPECT_FALSE(brought().isNull());
  EXPECT_EQ(answers.size(), 1U);
}

}  // namespace
}  // namespace vellix
