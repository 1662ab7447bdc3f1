// Bringing a page's pictures in before they are asked for.
#include <gmock/gmock.h>

#include "pictures/images_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ImagesPrefetch : public ImagesTest {
 protected:
  static Page page() {
    Page page;
    page.img = "own";
    page.thumb = "thumb";
    page.refs = {{"supplier", RefPage{.img = "s"}},
                 {"submitted", RefPage{.img = "r"}},
                 {"third", RefPage{}}};
    return page;
  }
  void prefetch(const Page& page) {
    images().prefetch({page});
    desk.time.run();
  }
  std::vector<std::string> lines() {
    std::vector<std::string> all;
    for (const auto& exchange : desk.http.exchanges) all.push_back(exchange.line());
    return all;
  }
  void answer(std::size_t index) {
    desk.http.answer(index, answerOf(200, "picture"));
    desk.time.run();
  }
};

TEST_F(ImagesPrefetch, BringsThePageThenEachReferenceInTurn) {
  images().prefetch({page()});
  EXPECT_THAT(lines(), IsEmpty()) << "the page on show asks first";
  desk.time.run();
  EXPECT_THAT(lines(), ElementsAre(lineOf("own")));
  answer(0);
  EXPECT_THAT(lines(), ElementsAre(lineOf("own"), lineOf("r")));
  answer(1);
  EXPECT_THAT(lines(), ElementsAre(lineOf("own"), lineOf("r"), lineOf("s")));
  answer(2);
  EXPECT_EQ(desk.http.exchanges.size(), 3U);
  EXPECT_EQ(images().heldInMemory(), 3U);
}

TEST_F(ImagesPrefetch, GoesOnPastAPictureThatCannotBeHad) {
  routes.set(lineOf("own"), answerOf(404));
  serve("r", "<html>");
  serve("s", "picture");
  prefetch(page());
  EXPECT_THAT(lines(), ElementsAre(lineOf("own"), lineOf("r"), lineOf("s")));
  EXPECT_TRUE(images().cached("s"));
}

TEST_F(ImagesPrefetch, AsksForNothingForAPageWithoutPictures) {
  prefetch(Page{});
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ImagesPrefetch, AsksOnlyForWhatIsNotAtHand) {
  files.files["own"] = "picture";
  serve("r", "picture");
  fetched("r");
  prefetch(page());
  EXPECT_THAT(lines(), ElementsAre(lineOf("r"), lineOf("s")));
}

TEST_F(ImagesPrefetch, DecodesWhatIsOnDiskSoThatAPageStepDoesNotWait) {
  files.files["own"] = "picture";
  files.files["s"] = "picture";
  files.files["r"] = "picture";
  prefetch(page());
  EXPECT_THAT(decoder.decoded, ElementsAre("own", "r", "s"));
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ImagesPrefetch, DecodesAPictureFromTheNetworkOnce) {
  for (const char* key : {"own", "r", "s"}) serve(key, "picture");
  prefetch(page());
  EXPECT_THAT(decoder.decoded, ElementsAre("own", "r", "s"));
}

TEST_F(ImagesPrefetch, SharesTheLoadOfAPaneThatAskedAlready) {
  auto& pane = ask("own");
  prefetch(page());
  EXPECT_THAT(lines(), ElementsAre(lineOf("own")));
  answer(0);
  EXPECT_TRUE(pane.value());
  EXPECT_THAT(lines(), ElementsAre(lineOf("own"), lineOf("r")));
}

TEST_F(ImagesPrefetch, OfSeveralPagesGoesOnBesideOneAnother) {
  Page other;
  other.img = "other";
  images().prefetch({page(), other});
  desk.time.run();
  EXPECT_THAT(lines(), ElementsAre(lineOf("own"), lineOf("other")));
}

TEST_F(ImagesPrefetch, EndsWithTheCache) {
  prefetch(page());
  made.reset();
  answer(0);
  EXPECT_THAT(lines(), ElementsAre(lineOf("own")));
}

}  // namespace
}  // namespace vellix
