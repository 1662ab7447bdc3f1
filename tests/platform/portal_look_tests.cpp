// The desktop's look, against a portal on a bus of the test's own.
#include "platform/linux/PortalLook.hpp"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include "platform/PrivateBus.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

using Settings = QMap<QString, QVariantMap>;

const QString kName = "org.freedesktop.portal.Desktop";
const QString kPath = "/org/freedesktop/portal/desktop";
const QString kInterface = "org.freedesktop.portal.Settings";
const QString kAppearance = "org.freedesktop.appearance";
const QString kDesktop = "org.gnome.desktop.interface";

class FakePortal : public QDBusVirtualObject {
 public:
  explicit FakePortal(const PrivateBus& bus)
      : bus_(QDBusConnection::connectToBus(bus.address, "portal")) {
    qDBusRegisterMetaType<Settings>();
    bus_.registerVirtualObject(kPath, this);
  }
  ~FakePortal() override {
    bus_.unregisterObject(kPath);
    QDBusConnection::disconnectFromBus("portal");
  }

  void appear() { EXPECT_TRUE(bus_.registerService(kName)); }
  void vanish() { bus_.unregisterService(kName); }
  void change(const QString& space, const QString& key, const QVariant& value) {
    settings[space][key] = value;
    auto signal = QDBusMessage::createSignal(kPath, kInterface, "SettingChanged");
    signal.setArguments({space, key, QVariant::fromValue(QDBusVariant(value))});
    bus_.send(signal);
  }

  Settings settings;
  QVariant instead;  // answered in the place of the settings
  bool refuses = false;
  int reads = 0;

 private:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    if (call.member() != "ReadAll") return false;
    ++reads;
    EXPECT_EQ(call.arguments(), (QVariantList{QStringList{kAppearance, kDesktop}}));
    bus.send(refuses
                 ? call.createErrorReply(QDBusError::AccessDenied, "no")
                 : call.createReply(instead.isValid() ? instead : QVariant::fromValue(settings)));
    return true;
  }

  QDBusConnection bus_;
};

class PortalLookTest : public testing::Test {
 protected:
  bool comesToBe(const PortalLook& look, const Look& expected) {
    return waitUntil([&] { return look.look() == expected; }, 5'000);
  }

  PrivateBus bus;
  FakePortal portal{bus};
};

TEST_F(PortalLookTest, ReadsWhatThePortalSays) {
  struct Case {
    Settings settings;
    Look look;
  };
  const Case cases[] = {
      {{{kAppearance, {{"color-scheme", 1U}}}}, {.scheme = Scheme::dark}},
      {{{kAppearance, {{"color-scheme", 2U}}}}, {.scheme = Scheme::light}},
      {{{kAppearance, {{"color-scheme", 2U}, {"reduced-motion", 1U}}}},
       {.scheme = Scheme::light, .reducedMotion = true}},
      {{{kDesktop, {{"enable-animations", false}}}}, {.reducedMotion = true}},
      {{{kAppearance, {{"color-scheme", 1U}, {"reduced-motion", 0U}}},
        {kDesktop, {{"enable-animations", true}, {"font-name", "Inter"}}}},
       {.scheme = Scheme::dark}},
  };
  portal.appear();
  for (const Case& c : cases) {
    portal.settings = c.settings;
    const PortalLook look(bus.address);
    EXPECT_TRUE(comesToBe(look, c.look));
  }
}

TEST_F(PortalLookTest, KnowsNoSchemeBeyondTheTwo) {
  for (const QVariant& scheme : {QVariant(0U), QVariant(3U), QVariant("dark")}) {
    portal.settings = {{kAppearance, {{"color-scheme", scheme}, {"reduced-motion", 1U}}}};
    if (portal.reads == 0) portal.appear();
    const PortalLook look(bus.address);
    EXPECT_TRUE(comesToBe(look, {.reducedMotion = true}));
  }
}

TEST_F(PortalLookTest, HearsOfEveryChange) {
  portal.settings = {{kAppearance, {{"color-scheme", 2U}}}};
  portal.appear();
  const PortalLook look(bus.address);
  ASSERT_TRUE(comesToBe(look, {.scheme = Scheme::light}));
  portal.change(kAppearance, "color-scheme", 1U);
  EXPECT_TRUE(comesToBe(look, {.scheme = Scheme::dark}));
  portal.change(kDesktop, "enable-animations", false);
  EXPECT_TRUE(comesToBe(look, {.scheme = Scheme::dark, .reducedMotion = true}));
  portal.change(kDesktop, "enable-animations", true);
  EXPECT_TRUE(comesToBe(look, {.scheme = Scheme::dark}));
  portal.change(kAppearance, "color-scheme", 0U);
  EXPECT_TRUE(comesToBe(look, {}));
  EXPECT_EQ(portal.reads, 1);
}

TEST_F(PortalLookTest, TellsNothingTwice) {
  portal.settings = {{kAppearance, {{"color-scheme", 1U}}}};
  portal.appear();
  const PortalLook look(bus.address);
  int told = 0;
  QObject::connect(&look, &PortalLook::changed, [&told] { ++told; });
  ASSERT_TRUE(comesToBe(look, {.scheme = Scheme::dark}));
  portal.change(kDesktop, "font-name", "Inter");
  portal.change(kAppearance, "color-scheme", 1U);
  portal.change(kAppearance, "color-scheme", 2U);
  ASSERT_TRUE(comesToBe(look, {.scheme = Scheme::light}));
  EXPECT_EQ(told, 2);
}

TEST_F(PortalLookTest, AsksAPortalThatComesLaterOrAgain) {
  const PortalLook look(bus.address);
  portal.settings = {{kAppearance, {{"color-scheme", 1U}}}};
  // Whenever the look began to watch, one of these comes after it.
  ASSERT_TRUE(waitUntil(
      [&] {
        portal.vanish();
        portal.appear();
        return look.look() == Look{.scheme = Scheme::dark};
      },
      5'000));
  portal.vanish();
  portal.settings = {{kAppearance, {{"color-scheme", 2U}}}};
  portal.appear();
  EXPECT_TRUE(comesToBe(look, {.scheme = Scheme::light}));
}

TEST_F(PortalLookTest, LeavesAnAnswerThatIsNone) {
  portal.appear();
  for (const QVariant& odd : {QVariant("dark"), QVariant(QStringList{"dark"}), QVariant()}) {
    portal.instead = odd;
    portal.refuses = !odd.isValid();
    const int before = portal.reads;
    const PortalLook look(bus.address);
    ASSERT_TRUE(waitUntil([&] { return portal.reads > before; }, 5'000));
    portal.change(kDesktop, "enable-animations", false);
    EXPECT_TRUE(comesToBe(look, {.reducedMotion = true}));
  }
}

TEST(PortalLook, IsUnsetWithoutABus) {
  const PortalLook look("unix:path=/nowhere/bus");
  EXPECT_FALSE(waitUntil([&] { return look.look() != Look{}; }, 200));
}

TEST(PortalLook, NeverHoldsTheMainThreadUp) {
  const QTemporaryDir home;
  QLocalServer silent;
  ASSERT_TRUE(silent.listen(home.filePath("bus")));
  const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + silent.fullServerName().toUtf8());
  QElapsedTimer clock;
  clock.start();
  {
    const PortalLook look;
    EXPECT_LT(clock.elapsed(), 200);
    // Nobody answers, and the thread is given up.
    ASSERT_TRUE(waitUntil([&] { return silent.hasPendingConnections(); }, 5'000));
  }
  EXPECT_LT(clock.elapsed(), 5'000);
  silent.nextPendingConnection()->abort();
  qputenv("DBUS_SESSION_BUS_ADDRESS", before);
}

}  // namespace
}  // namespace vellix
