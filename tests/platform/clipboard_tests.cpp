#include "platform/qt/QtClipboard.hpp"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRasterWindow>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

const QMimeData& held() { return *QGuiApplication::clipboard()->mimeData(); }

TEST(QtClipboard, HoldsPlainTextInPlaceOfAllThereWas) {
  auto* before = new QMimeData;
  before->setHtml("<b>old</b>");
  before->setData("application/x-proof", "old");
  QGuiApplication::clipboard()->setMimeData(before);
  QtClipboard{}.put("https://s.example/1?a=b&c=%2B");
  EXPECT_EQ(held().text(), "https://s.example/1?a=b&c=%2B");
  EXPECT_FALSE(held().hasHtml());
  EXPECT_FALSE(held().hasFormat("application/x-proof"));
}

TEST(QtClipboard, TakesOtherScriptsAndLines) {
  for (const char* text : {"燈台へ\nК маяку", "", "a\ttab \"quoted\" <b>"}) {
    QtClipboard{}.put(text);
    EXPECT_EQ(held().text().toStdString(), text);
  }
}

TEST(QtClipboard, StillHoldsItWhenTheWindowIsLeft) {
  QRasterWindow window;
  QRasterWindow other;
  const auto enter = [](QRasterWindow& entered) {
    entered.show();
    entered.requestActivate();
    return waitUntil([&entered] { return QGuiApplication::focusWindow() == &entered; });
  };
  ASSERT_TRUE(enter(window));
  QtClipboard{}.put("https://s.example/1");
  ASSERT_TRUE(enter(other));
  EXPECT_EQ(held().text(), "https://s.example/1");
}

}  // namespace
}  // namespace vellix
