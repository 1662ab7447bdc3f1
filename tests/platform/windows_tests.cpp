#include "platform/qt/QtWindows.hpp"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QRasterWindow>
#include <QSysInfo>

#include "platform/qt/QtMachine.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

TEST(QtWindows, AreSeenWhileAnActiveOneShows) {
  const QtWindows windows(Milliseconds{0});
  EXPECT_FALSE(windows.seen());
  QRasterWindow window;
  window.resize(100, 100);
  EXPECT_FALSE(windows.seen());
  window.show();
  window.requestActivate();
  EXPECT_TRUE(waitUntil([&windows] { return windows.seen(); }));
  window.showMinimized();
  EXPECT_TRUE(waitUntil([&windows] { return !windows.seen(); }));
  window.showNormal();
  window.requestActivate();
  EXPECT_TRUE(waitUntil([&windows] { return windows.seen(); }));
  window.hide();
  EXPECT_FALSE(windows.seen());
}

TEST(QtWindows, AreSeenWhileTheFirstIsOnItsWay) {
  EXPECT_TRUE(QtWindows().seen());
  EXPECT_TRUE(QtWindows(Milliseconds{60'000}).seen());
}

TEST(QtMachine, HasTheHostsName) {
  EXPECT_EQ(QtMachine().name(), QSysInfo::machineHostName().toStdString());
  EXPECT_FALSE(QtMachine().name().empty());
}

}  // namespace
}  // namespace vellix
