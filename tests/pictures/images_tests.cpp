// The picture cache: its levels, one load a key, and what fails.
#include "pictures/images_test.hpp"

namespace vellix {
namespace {

TEST_F(ImagesTest, FetchesAKeyOnceAndHoldsIt) {
  serve("p/t1/0.jpg", "picture");
  const PictureHandle picture = fetched("p/t1/0.jpg");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->key, "p/t1/0.jpg");
  EXPECT_EQ(picture->width, 7);
  EXPECT_EQ(fetched("p/t1/0.jpg"), picture);
  EXPECT_EQ(images().cached("p/t1/0.jpg"), picture);
  EXPECT_EQ(requests(), 1U);
  EXPECT_EQ(images().heldInMemory(), 1U);
}

TEST_F(ImagesTest, AsksThroughTheGatewayInTheLaneOfPictures) {
  ask("p/t1/0.jpg");
  ASSERT_EQ(desk.http.exchanges.size(), 1U);
  const auto& exchange = desk.http.exchanges[0];
  EXPECT_EQ(exchange.line(), "GET api/blob/p/t1/0.jpg");
  EXPECT_EQ(exchange.header("Authorization"), "Bearer token-1");
  EXPECT_FALSE(exchange.has("If-None-Match"));
  EXPECT_EQ(exchange.request.lane, HttpLane::pictures);
}

TEST_F(ImagesTest, KeepsTheBytesOnDiskExactlyAsTheyCame) {
  const std::string bytes{"pic\0\xff\r\n", 7};
  serve("a", bytes);
  const PictureHandle picture = fetched("a");
  EXPECT_EQ(files.files, (std::map<std::string, std::string>{{"a", bytes}}));
  EXPECT_EQ(picture->file, "/caches/img/a");
  EXPECT_EQ(picture->bytes, "") << "the disk has them";
}

TEST_F(ImagesTest, AnswersTwoCallsForOneKeyWithOneRequestAndOnePicture) {
  auto& first = ask("a");
  auto& second = ask("a");
  desk.time.run();
  EXPECT_EQ(requests(), 1U);
  EXPECT_FALSE(first);
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  ASSERT_TRUE(first);
  ASSERT_TRUE(second);
  EXPECT_TRUE(*first);
  EXPECT_EQ(*first, *second);
}

TEST_F(ImagesTest, AnswersACallMadeWhileThePictureIsBeingDecodedToo) {
  auto& first = ask("a");
  desk.http.exchanges[0].resolver(answerOf(200, "picture"));
  ASSERT_EQ(decoder.decoded.size(), 1U);
  auto& second = ask("a");
  desk.time.run();
  EXPECT_EQ(requests(), 1U);
  EXPECT_EQ(first.value(), second.value());
}

TEST_F(ImagesTest, AnswersAllCallsOfAFailedLoadWithNothing) {
  auto& first = ask("a");
  auto& second = ask("a");
  desk.http.answer(0, answerOf(500));
  desk.time.run();
  EXPECT_EQ(first.value(), nullptr);
  EXPECT_EQ(second.value(), nullptr);
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesTest, FetchesDifferentKeysBesideOneAnother) {
  auto& slow = ask("a");
  serve("b", "picture");
  EXPECT_TRUE(fetched("b"));
  EXPECT_FALSE(slow);
}

TEST_F(ImagesTest, HasNothingForAnAbsentKeyAndAsksNobody) {
  auto& place = ask(std::nullopt);
  desk.time.run();
  EXPECT_EQ(place.value(), nullptr);
  EXPECT_EQ(images().cached(std::nullopt), nullptr);
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ImagesTest, GivesWhatIsCachedWithoutEverAskingTheNetwork) {
  EXPECT_EQ(images().cached("a"), nullptr);
  desk.time.run();
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(images().heldInMemory(), 0U);
}

TEST_F(ImagesTest, ReadsTheDiskOnceAndHoldsThePictureFromThenOn) {
  files.files["p_0"] = "picture";
  const PictureHandle picture = images().cached("p/0");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->file, "/caches/img/p_0");
  EXPECT_EQ(images().cached("p/0"), picture);
  EXPECT_EQ(decoder.inspected["p/0"], 1);
  EXPECT_EQ(fetched("p/0"), picture);
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ImagesTest, FindsAPictureOnDiskAfterARestart) {
  serve("p/0", "picture");
  fetched("p/0");
  restart();
  EXPECT_TRUE(fetched("p/0"));
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesTest, SharesAFileBetweenASlashAndAnUnderscore) {
  EXPECT_EQ(Images::fileName("p/t1/0.jpg"), "p_t1_0.jpg");
  EXPECT_EQ(Images::fileName("p_t1_0.jpg"), "p_t1_0.jpg");
  serve("p/t1/0.jpg", "picture");
  fetched("p/t1/0.jpg");
  const PictureHandle other = fetched("p_t1_0.jpg");
  ASSERT_TRUE(other);
  EXPECT_EQ(other->file, "/caches/img/p_t1_0.jpg");
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesTest, FetchesAgainOverAFileThatIsNoPicture) {
  files.files["a"] = "torn";
  EXPECT_EQ(images().cached("a"), nullptr);
  serve("a", "picture");
  EXPECT_TRUE(fetched("a"));
  EXPECT_EQ(files.files["a"], "picture");
}

TEST_F(ImagesTest, EmptiesTheMemoryAtThe401stPictureAndReadsTheOldOnesFromDisk) {
  for (int i = 0; i < 400; ++i) {
    serve(std::to_string(i), "pic" + std::to_string(i));
    ASSERT_TRUE(fetched(std::to_string(i)));
  }
  EXPECT_EQ(images().heldInMemory(), 400U);
  images().samples["sample"] = std::make_shared<const Picture>();
  auto& slow = ask("slow");
  serve("last", "picture");
  EXPECT_TRUE(fetched("last")) << "is given all the same";
  EXPECT_EQ(images().heldInMemory(), 0U);
  EXPECT_TRUE(images().cached("sample"));

  const auto sent = desk.http.exchanges.size();
  const PictureHandle old = images().cached("0");
  ASSERT_TRUE(old);
  EXPECT_EQ(old->width, 4);
  EXPECT_EQ(images().heldInMemory(), 1U);
  EXPECT_EQ(decoder.inspected["0"], 1);
  auto& joined = ask("slow");
  EXPECT_EQ(desk.http.exchanges.size(), sent) << "the load in flight is still known";
  desk.http.answer(*desk.http.matching(lineOf("slow")).at(0), answerOf(200, "picture"));
  desk.time.run();
  EXPECT_EQ(slow.value(), joined.value());
}

TEST_F(ImagesTest, CountsAPictureThatIsFetchedAgainOnlyOnce) {
  files.writable = false;
  for (int i = 0; i < 400; ++i) {
    serve(std::to_string(i), "picture");
    fetched(std::to_string(i));
  }
  fetched("0");
  EXPECT_EQ(images().heldInMemory(), 400U);
}

struct FailureCase {
  const char* name;
  HttpResult answer;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name))

class MissingImages : public ImagesTest, public testing::WithParamInterface<FailureCase> {};

TEST_P(MissingImages, AreNothingLeaveNothingAndCanBeAskedForAgain) {
  routes.next(lineOf("a"), GetParam().answer);
  serve("a", "picture");
  EXPECT_EQ(fetched("a"), nullptr);
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(images().heldInMemory(), 0U);
  EXPECT_FALSE(desk.store().toast());
  EXPECT_FALSE(desk.store().problem());
  EXPECT_TRUE(desk.store().signedIn());
  EXPECT_TRUE(fetched("a"));
  EXPECT_EQ(requests(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    All, MissingImages,
    testing::Values(FailureCase{"NoPicture", answerOf(200, "<html>")},
                    FailureCase{"Empty", answerOf(200)}, FailureCase{"NoContent", answerOf(204)},
                    FailureCase{"NotFound", answerOf(404, "picture")},
                    FailureCase{"SignedOut", answerOf(401)}, FailureCase{"Broken", answerOf(500)},
                    FailureCase{"Offline", std::unexpected(HttpError::notConnected)},
                    FailureCase{"TooLarge", std::unexpected(HttpError::tooLarge)}),
    [](const auto& each) { return each.param.name; });

TEST_F(ImagesTest, WorksFromMemoryWhenTheDiskTakesNothing) {
  files.writable = false;
  serve("a", "picture");
  const PictureHandle picture = fetched("a");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->file, "");
  EXPECT_EQ(picture->bytes, "picture");
  EXPECT_EQ(fetched("a"), picture);
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesTest, LooksAtSamplesFirstAndAsksNobodyForThem) {
  const auto sample = std::make_shared<const Picture>(Picture{.key = "a", .width = 1, .height = 1});
  files.files["a"] = "picture";
  ASSERT_NE(images().cached("a"), nullptr);
  images().samples["a"] = sample;
  EXPECT_EQ(images().cached("a"), sample);
  EXPECT_EQ(fetched("a"), sample);
  images().samples["b"] = sample;
  EXPECT_EQ(fetched("b"), sample);
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ImagesTest, LooksFurtherForAKeyThatIsNoSample) {
  images().samples["a"] = std::make_shared<const Picture>();
  files.files["b"] = "picture";
  EXPECT_TRUE(images().cached("b"));
  EXPECT_FALSE(images().cached("c"));
}

TEST_F(ImagesTest, EndsWithLoadsInFlight) {
  auto& place = ask("a");
  made.reset();
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_FALSE(place);
  EXPECT_TRUE(files.files.empty());
}

}  // namespace
}  // namespace vellix
