// A picture that could not be had: how its place tells, and when it is asked for again.
#include <QSignalSpy>

#include "remote_image_test.hpp"

namespace vellix {
namespace {

class MissingPicture : public RemoteImageTest {
 protected:
  void miss(const QString& key = "a") {
    ask(key);
    source.answer(source.requests.size() - 1, {});
    frame();
  }
  // How many have been asked for since, a frame or two later.
  std::size_t askedOn(const std::function<void()>& event) {
    const auto before = source.requests.size();
    event();
    frame();
    frame();
    return source.requests.size() - before;
  }
  std::size_t askedWhenWorthIt() {
    return askedOn([this] { emit source.worthAnotherTry(); });
  }
};

TEST_F(MissingPicture, IsToldAsSuchUntilItIsHere) {
  QSignalSpy told(item.get(), &RemoteImage::missingChanged);
  ask("a");
  EXPECT_FALSE(item->missing()) << "nobody knows yet";
  source.answer(0, {});
  frame();
  EXPECT_TRUE(item->missing());
  ASSERT_EQ(askedWhenWorthIt(), 1U);
  EXPECT_TRUE(item->missing()) << "the other try is on its way";
  source.answer(1, plain(kRed));
  EXPECT_EQ(seen(), kRed);
  EXPECT_FALSE(item->missing());
  EXPECT_EQ(told.count(), 2);
}

TEST_F(MissingPicture, IsNoneWithoutAKeyAndNoneOfTheNextKey) {
  item->setKey("");
  frame();
  EXPECT_FALSE(item->missing());
  miss();
  ASSERT_TRUE(item->missing());
  ask("b");
  EXPECT_FALSE(item->missing());
  source.answer(1, {});
  frame();
  EXPECT_TRUE(item->missing());
  ask("");
  EXPECT_FALSE(item->missing());
  EXPECT_EQ(askedWhenWorthIt(), 0U);
}

TEST_F(MissingPicture, IsAskedForOnceEachTimeThatItIsWorthIt) {
  miss();
  for (std::size_t times = 1; times <= 3; ++times) {
    EXPECT_EQ(askedWhenWorthIt(), 1U);
    EXPECT_EQ(source.requests.back().key, "a");
    EXPECT_EQ(askedWhenWorthIt(), 0U) << "it is on its way";
    source.answer(times, {});
    EXPECT_EQ(askedOn([] {}), 0U) << "a failure by itself asks nobody";
  }
}

TEST_F(MissingPicture, LetsThoseBeThatAreHereOrOnTheirWay) {
  ask("a");
  EXPECT_EQ(askedWhenWorthIt(), 0U);
  source.answer(0, plain(kRed));
  ASSERT_EQ(seen(), kRed);
  EXPECT_EQ(askedWhenWorthIt(), 0U);
}

TEST_F(MissingPicture, IsAskedForOnlyOnceItIsInSight) {
  QQuickItem clipping(window.contentItem());
  clipping.setSize({50, 50});
  clipping.setClip(true);
  QQuickItem moving(&clipping);
  item->setParentItem(&moving);
  miss();
  struct Row {
    const char* why;
    std::function<void()> leave, come;
  };
  const Row rows[] = {
      {"hidden", [&] { item->setVisible(false); }, [&] { item->setVisible(true); }},
      {"hidden with another", [&] { clipping.setVisible(false); },
       [&] { clipping.setVisible(true); }},
      {"scrolled away", [&] { moving.setY(60); }, [&] { moving.setY(40); }},
      {"outside the window", [&] { clipping.setX(-60); }, [&] { clipping.setX(0); }},
  };
  for (const auto& row : rows) {
    row.leave();
    frame();
    EXPECT_EQ(askedWhenWorthIt(), 0U) << row.why;
    EXPECT_EQ(askedWhenWorthIt(), 0U) << row.why;
    EXPECT_EQ(askedOn(row.come), 1U) << row.why;
    source.answer(source.requests.size() - 1, {});
    EXPECT_EQ(askedOn(row.leave), 0U) << row.why;
    EXPECT_EQ(askedOn(row.come), 0U) << row.why << ": nothing has happened since";
  }
  item.reset();
}

TEST_F(MissingPicture, IsAskedForAgainToBeSharp) {
  const QSize whole(1000, 1000);
  source.held["a"] = {plain(kRed, {20, 20}), whole};
  ask("a");
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, {});
  EXPECT_EQ(seen(), kRed);
  EXPECT_FALSE(item->missing()) << "it is seen, if not well";
  EXPECT_EQ(askedWhenWorthIt(), 1U);
  source.answer(1, {plain(kBlue, item->size().toSize() * scale()), whole});
  EXPECT_EQ(seen(), kBlue);
}

TEST_F(MissingPicture, HearsOfItsOwnSourceAlone) {
  miss();
  ScriptedSource other;
  item->setPictures(&other);
  frame();
  other.answer(0, {});
  EXPECT_EQ(askedWhenWorthIt(), 0U);
  emit other.worthAnotherTry();
  frame();
  EXPECT_EQ(other.requests.size(), 2U);
}

}  // namespace
}  // namespace vellix
