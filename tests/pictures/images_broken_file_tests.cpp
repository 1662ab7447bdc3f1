// Pictures whose file goes or tears after it was taken.
#include "pictures/images_test.hpp"

namespace vellix {
namespace {

class BrokenFile : public ImagesTest {
 protected:
  static constexpr const char* kTorn = "pic torn";

  // A picture that is held, and whose file then breaks.
  PictureHandle brokenAfterLoading(const std::string& key) {
    serve(key, "picture");
    const PictureHandle picture = fetched(key);
    files.files.erase(Images::fileName(key));
    return picture;
  }
  void prefetch(const std::string& key) {
    Page page;
    page.img = key;
    images().prefetch({page});
    desk.time.run();
  }
};

TEST_F(BrokenFile, ThatHasGoneIsFetchedAndWrittenAnew) {
  const PictureHandle broken = brokenAfterLoading("p/0");
  EXPECT_EQ(images().cached("p/0"), broken) << "nobody has noticed";
  images().forget(broken);
  EXPECT_EQ(images().cached("p/0"), nullptr);
  const PictureHandle anew = fetched("p/0");
  ASSERT_TRUE(anew);
  EXPECT_EQ(files.files["p_0"], "picture");
  EXPECT_EQ(images().cached("p/0"), anew);
  EXPECT_EQ(requests("p/0"), 2U);
}

TEST_F(BrokenFile, WithAGoodHeaderIsNotTakenASecondTime) {
  files.files["p_0"] = kTorn;
  const PictureHandle broken = images().cached("p/0");
  ASSERT_TRUE(broken);
  images().forget(broken);
  EXPECT_EQ(images().cached("p/0"), nullptr);
  EXPECT_EQ(decoder.inspected["p/0"], 1);
  EXPECT_EQ(files.files["p_0"], kTorn) << "stays until there is something better";
  serve("p/0", "picture");
  EXPECT_TRUE(fetched("p/0"));
  EXPECT_EQ(files.files["p_0"], "picture");
}

TEST_F(BrokenFile, IsReadAgainOnceItIsWhole) {
  files.files["a"] = kTorn;
  images().forget(images().cached("a"));
  serve("a", "picture");
  fetched("a");
  for (int i = 0; i < 400; ++i) {
    serve(std::to_string(i), "picture");
    fetched(std::to_string(i));
  }
  ASSERT_EQ(images().heldInMemory(), 0U);
  EXPECT_TRUE(images().cached("a"));
  EXPECT_EQ(requests("a"), 1U);
}

TEST_F(BrokenFile, StaysUntakenWhileTheDiskTakesNothingNew) {
  files.files["a"] = kTorn;
  images().forget(images().cached("a"));
  files.writable = false;
  serve("a", "picture");
  const PictureHandle anew = fetched("a");
  ASSERT_TRUE(anew);
  EXPECT_EQ(anew->file, "");
  EXPECT_EQ(images().cached("a"), anew);
  images().forget(anew);
  EXPECT_EQ(images().cached("a"), nullptr);
}

TEST_F(BrokenFile, CostsOneRequestForEachCallWhileItCannotBeHad) {
  images().forget(brokenAfterLoading("a"));
  routes.set(lineOf("a"), answerOf(404));
  EXPECT_EQ(fetched("a"), nullptr);
  EXPECT_EQ(requests("a"), 2U);
  EXPECT_EQ(fetched("a"), nullptr);
  EXPECT_EQ(requests("a"), 3U);
  EXPECT_EQ(images().heldInMemory(), 0U);
}

TEST_F(BrokenFile, ThatSeveralNoticeIsFetchedOnce) {
  const PictureHandle broken = brokenAfterLoading("a");
  routes.leaveOpen(lineOf("a"));
  images().forget(broken);
  auto& first = ask("a");
  images().forget(broken);
  auto& second = ask("a");
  desk.time.run();
  EXPECT_EQ(requests("a"), 2U);
  desk.http.answer(1, answerOf(200, "picture"));
  desk.time.run();
  ASSERT_TRUE(first.value());
  EXPECT_EQ(first.value(), second.value());
  images().forget(broken);
  EXPECT_EQ(images().cached("a"), first.value()) << "it has come anew since";
}

TEST_F(BrokenFile, UnderASampleAsksNobody) {
  const auto sample = std::make_shared<const Picture>(Picture{.key = "a", .file = "/caches/img/a"});
  images().samples["a"] = sample;
  images().forget(sample);
  EXPECT_EQ(fetched("a"), sample);
  prefetch("a");
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(BrokenFile, IsBroughtAnewAheadOfAPageStep) {
  files.files["a"] = kTorn;
  serve("a", "picture");
  prefetch("a");
  EXPECT_EQ(requests("a"), 1U);
  EXPECT_EQ(files.files["a"], "picture");
  EXPECT_EQ(images().cached("a")->width, 7);
  prefetch("a");
  EXPECT_EQ(requests("a"), 1U);
}

TEST_F(BrokenFile, ThatCannotBeBroughtAnewIsTriedOnceForEachPrefetch) {
  files.files["a"] = kTorn;
  serve("a", kTorn);
  prefetch("a");
  EXPECT_EQ(requests("a"), 1U);
  EXPECT_EQ(images().cached("a"), nullptr);
  EXPECT_EQ(files.files["a"], kTorn);
  prefetch("a");
  EXPECT_EQ(requests("a"), 2U);
}

}  // namespace
}  // namespace vellix
