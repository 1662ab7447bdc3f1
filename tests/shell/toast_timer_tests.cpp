// How long a toast stays.
#include "shell/toast_timer.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

class ToastTimers : public StoreTest {
 protected:
  void say(std::string text) {
    store().toast.set(Toast{std::move(text)});
    desk.time.run();
  }
  void wait(double milliseconds) { desk.time.advance(Milliseconds{milliseconds}); }
  std::string shown() { return desk.toastText(); }
};

TEST_F(ToastTimers, TakeAToastAwayAfterFourSeconds) {
  const ToastTimer timer{store(), desk.time};
  say("Reopened.");
  wait(3'999);
  EXPECT_EQ(shown(), "Reopened.");
  wait(1);
  EXPECT_FALSE(store().toast());
}

TEST_F(ToastTimers, TimeAToastThatWasThereBefore) {
  say("Reopened.");
  const ToastTimer timer{store(), desk.time};
  wait(4'000);
  EXPECT_FALSE(store().toast());
}

TEST_F(ToastTimers, GiveANewToastItsOwnFourSeconds) {
  const ToastTimer timer{store(), desk.time};
  say("First.");
  wait(3'500);
  say("Second.");
  wait(3'999);
  EXPECT_EQ(shown(), "Second.");
  wait(1);
  EXPECT_FALSE(store().toast());
}

TEST_F(ToastTimers, TakeToastsOfEqualWordsForTwo) {
  const ToastTimer timer{store(), desk.time};
  say("Marked fine.");
  const auto first = store().toast();
  wait(3'500);
  say("Marked fine.");
  EXPECT_NE(store().toast(), first);
  wait(3'999);
  EXPECT_EQ(shown(), "Marked fine.");
  wait(1);
  EXPECT_FALSE(store().toast());
}

TEST_F(ToastTimers, TimeOnlyTheLastOfOneTurn) {
  const ToastTimer timer{store(), desk.time};
  store().toast.set(Toast{"First."});
  say("Second.");
  EXPECT_EQ(desk.time.sleeping(), 1U);
  wait(4'000);
  EXPECT_FALSE(store().toast());
}

TEST_F(ToastTimers, SleepOnlyWhileAToastIsShown) {
  const ToastTimer timer{store(), desk.time};
  desk.time.run();
  EXPECT_EQ(desk.time.sleeping(), 0U);
  say("First.");
  wait(4'000);
  EXPECT_EQ(desk.time.sleeping(), 0U);
}

TEST_F(ToastTimers, LeaveTheToastWhenTheyEndFirst) {
  {
    const ToastTimer timer{store(), desk.time};
    say("First.");
  }
  wait(10'000);
  EXPECT_EQ(shown(), "First.");
}

TEST_F(ToastTimers, WaitForAToastThatCameBackAfterAnother) {
  const ToastTimer timer{store(), desk.time};
  say("First.");
  store().undoToast();
  desk.time.run();
  wait(1'000);
  say("Second.");
  wait(3'999);
  EXPECT_EQ(shown(), "Second.") << "the first one's time is over meanwhile";
}

}  // namespace
}  // namespace vellix
