// What the root view is told, and the toast over it.
#include "shell/RootModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class RootModels : public StoreTest {
 protected:
  void say(Toast toast) {
    store().toast.set(std::move(toast));
    desk.time.run();
  }
};

TEST_F(RootModels, GiveTheToastWithItsUndo) {
  RootModel model{store(), desk.time};
  EXPECT_EQ(model.toast(), (QVariantMap{{"id", ""}, {"text", ""}, {"undoLabel", ""}}));
  bool undone = false;
  const Toast toast{"Marked fine.", "Undo", [&] { undone = true; }};
  say(toast);
  EXPECT_EQ(model.toast(), (QVariantMap{{"id", QString::number(toast.id)},
                                        {"text", "Marked fine."},
                                        {"undoLabel", "Undo"}}));
  model.undo();
  desk.time.run();
  EXPECT_TRUE(undone);
  EXPECT_EQ(model.toast()["id"].toString(), "");
}

TEST_F(RootModels, OfferNoUndoWithoutOne) {
  RootModel model{store(), desk.time};
  say(Toast{"Up to date."});
  EXPECT_EQ(model.toast()["undoLabel"].toString(), "");
  say(Toast{"Up to date.", "Undo", nullptr});
  EXPECT_EQ(model.toast()["undoLabel"].toString(), "");
}

TEST_F(RootModels, TellOfASecondToastWithTheSameWords) {
  RootModel model{store(), desk.time};
  const QSignalSpy toasts{&model, &RootModel::toastChanged};
  say(Toast{"Up to date."});
  const auto first = model.toast();
  say(Toast{"Up to date."});
  EXPECT_NE(model.toast(), first);
  EXPECT_EQ(toasts.count(), 2);
}

TEST_F(RootModels, TakeTheToastAwayInTime) {
  RootModel model{store(), desk.time};
  say(Toast{"Up to date."});
  desk.time.advance(Milliseconds{3'999});
  EXPECT_EQ(model.toast()["text"].toString(), "Up to date.");
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(model.toast()["text"].toString(), "");
}

TEST_F(RootModels, TellOnlyWhatChanges) {
  RootModel model{store(), desk.time};
  const QSignalSpy views{&model, &RootModel::viewChanged};
  serveBoard(boardOf({ticketOf("t1")}));
  poll();
  EXPECT_EQ(views.count(), 1);
  EXPECT_EQ(model.view()["content"].toString(), "file");
  poll();
  EXPECT_EQ(views.count(), 1);
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  EXPECT_EQ(views.count(), 2);
  EXPECT_TRUE(model.view()["offline"].toBool());
  EXPECT_EQ(model.view()["problem"].toString(), kOfflineText);
}

TEST_F(RootModels, FollowTheAppearance) {
  RootModel model{store(), desk.time};
  EXPECT_EQ(model.appearance(), "system");
  const QSignalSpy appearances{&model, &RootModel::appearanceChanged};
  store().prefs.appearance.set("dark");
  desk.time.run();
  EXPECT_EQ(appearances.count(), 1);
  EXPECT_EQ(model.appearance(), "dark");
}

TEST_F(RootModels, StartPollingForSomebodySignedIn) {
  serveBoard(boardOf({}));
  RootModel model{store(), desk.time};
  model.start();
  desk.time.run();
  EXPECT_TRUE(store().looping());
  EXPECT_EQ(polls(), 1U);
}

class RootModelsSignedOut : public RootModels {
 protected:
  RootModelsSignedOut() { desk.tokens.item.reset(); }
};

TEST_F(RootModelsSignedOut, StartNothing) {
  RootModel model{store(), desk.time};
  model.start();
  desk.time.run();
  EXPECT_FALSE(model.view()["signedIn"].toBool());
  EXPECT_FALSE(store().looping());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST(RootModel, GivesTheSidebarsWidth) {
  EXPECT_EQ(RootModel::sidebarWidth(979), 236);
  EXPECT_EQ(RootModel::sidebarWidth(980), 260);
}

}  // namespace
}  // namespace vellix
