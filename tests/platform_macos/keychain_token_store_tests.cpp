// The token in the keychain: KeychainTokenStoreTest.* with one that is open, the rest without any.
#include "platform/macos/KeychainTokenStore.hpp"

#include <gtest/gtest.h>
#include <qt6keychain/keychain.h>

#include "platform/macos/TokenStores.hpp"
#include "platform/macos/mac_bundle.hpp"
#include "platform/waiting.hpp"

namespace vellix {

namespace {

// What the running copy is taken to be.
std::optional<std::string> bundleIdentifier;

}  // namespace

RunningCopy runningCopy(std::int64_t built) {
  return {.identifier = bundleIdentifier, .bundle = {}, .process = 1, .build = built};
}

namespace {

using Token = std::optional<std::string>;

constexpr const char* kService = "com.rennyvale.Sorel.tests";

std::unique_ptr<KeychainTokenStore> opened(const std::string& service = kService) {
  auto store = std::make_unique<KeychainTokenStore>(service);
  bool primed = false;
  store->prime([&primed] { primed = true; });
  EXPECT_FALSE(primed) << "in a later turn";
  EXPECT_TRUE(waitUntil([&primed] { return primed; }));
  return store;
}

Token found(const std::string& service = kService) { return opened(service)->read(); }

bool settles(KeychainTokenStore& store) {
  const auto settled = store.settled();
  EXPECT_FALSE(settled.resolved()) << "in a later turn";
  return await(settled).has_value();
}

void carryOut(QKeychain::Job& job) {
  job.setAutoDelete(false);
  job.setKey("session");
  bool ended = false;
  QObject::connect(&job, &QKeychain::Job::finished, [&ended] { ended = true; });
  job.start();
  EXPECT_TRUE(waitUntil([&ended] { return ended; }));
  EXPECT_EQ(job.error(), QKeychain::NoError) << job.errorString().toStdString();
}

class KeychainTokenStoreTest : public testing::Test {
 protected:
  void SetUp() override { empty(); }
  void TearDown() override { empty(); }
  static void empty() {
    const auto store = opened();
    store->remove();
    EXPECT_TRUE(settles(*store));
  }
};

TEST_F(KeychainTokenStoreTest, HoldsNothingAtFirst) { EXPECT_EQ(found(), std::nullopt); }

TEST_F(KeychainTokenStoreTest, KeepsTheTokenForTheNextRun) {
  const auto store = opened();
  store->add("first");
  EXPECT_EQ(store->read(), "first") << "at once";
  EXPECT_TRUE(settles(*store));
  EXPECT_EQ(found(), "first");
  EXPECT_EQ(found(std::string{kService} + ".other"), std::nullopt);
}

TEST_F(KeychainTokenStoreTest, CarriesOutInOrder) {
  const auto store = opened();
  store->add("first");
  store->remove();
  EXPECT_EQ(store->read(), std::nullopt);
  store->add("second");
  EXPECT_TRUE(settles(*store));
  EXPECT_EQ(found(), "second");
  store->add("third");
  store->remove();
  EXPECT_TRUE(settles(*store));
  EXPECT_EQ(found(), std::nullopt);
}

TEST_F(KeychainTokenStoreTest, WritesOnWhenItHasGone) {
  {
    const auto store = opened();
    store->add("first");
    store->add("second");
  }
  EXPECT_TRUE(waitUntil([] { return found() == "second"; }));
}

TEST_F(KeychainTokenStoreTest, SettlesWithNothingToDo) { EXPECT_TRUE(settles(*opened())); }

TEST_F(KeychainTokenStoreTest, WhatIsNoTextIsNoToken) {
  QKeychain::WritePasswordJob job{kService};
  job.setBinaryData(QByteArray("\xff\xfe\x01", 3));
  carryOut(job);
  EXPECT_EQ(found(), std::nullopt);
}

TEST_F(KeychainTokenStoreTest, IsOpenedUnderTheBundlesIdentifier) {
  opened()->add("first");
  EXPECT_TRUE(waitUntil([] { return found() == "first"; }));
  bundleIdentifier = kService;
  const auto opening = openTokenStore("a folder that is none");
  EXPECT_FALSE(opening.resolved()) << "in a later turn";
  const auto store = await(opening);
  ASSERT_TRUE(store);
  EXPECT_EQ((*store)->read(), "first");
}

TEST_F(KeychainTokenStoreTest, WithoutABundleItIsTheProgramsOwnName) {
  bundleIdentifier.reset();
  const auto store = await(openTokenStore({}));
  ASSERT_TRUE(store);
  (*store)->add("unbundled");
  EXPECT_TRUE(await((*store)->settled()));
  EXPECT_EQ(found("com.rennyvale.Sorel"), "unbundled");
  (*store)->remove();
  EXPECT_TRUE(await((*store)->settled()));
}

TEST(WithoutAKeychain, TheTokenLastsForTheRun) {
  const auto store = opened();
  EXPECT_EQ(store->read(), std::nullopt);
  store->add("first");
  EXPECT_EQ(store->read(), "first");
  EXPECT_TRUE(settles(*store));
  EXPECT_EQ(store->read(), "first");
  EXPECT_EQ(found(), std::nullopt);
}

}  // namespace
}  // namespace vellix
