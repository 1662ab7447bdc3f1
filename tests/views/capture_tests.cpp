// Pictures of the program's own window, and how they can fail.
#include "shell/Capture.hpp"

#include <gtest/gtest.h>

#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

namespace vellix {
namespace {

class Capture : public testing::Test {
 protected:
  static void paint(QQuickWindow& window, const QColor& colour, QSize size) {
    window.setColor(colour);
    window.resize(size);
  }
  QColor captured() {
    const QImage image(path);
    size = image.size();
    return image.isNull() ? QColor() : image.pixelColor(1, 1);
  }

  QTemporaryDir folder;
  QString path = folder.filePath("shot.png");
  QSize size;
};

TEST_F(Capture, EndsWithTwoWithoutAWindow) {
  for (const bool asOnScreen : {false, true}) EXPECT_EQ(captureWindow(path, asOnScreen), 2);
  EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Capture, EndsWithTwoWithoutContent) {
  QWindow bare;
  bare.show();
  EXPECT_EQ(captureWindow(path, false), 2);
}

TEST_F(Capture, EndsWithThreeWhereNoBitmapCanBeMade) {
  QQuickWindow window;
  constexpr int kBeyondAllMemory = 1 << 23;
  window.resize(kBeyondAllMemory, kBeyondAllMemory);
  EXPECT_EQ(captureWindow(path, false), 3);
  EXPECT_EQ(captureWindow(path, true), 0) << "the screen gives what it has";
}

TEST_F(Capture, TakesTheFirstVisibleWindow) {
  QQuickWindow hidden;
  paint(hidden, Qt::red, {100, 100});
  QQuickWindow shown;
  paint(shown, Qt::blue, {120, 80});
  shown.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
  EXPECT_EQ(captureWindow(path, false), 0);
  EXPECT_EQ(captured(), QColor(Qt::blue));
  EXPECT_EQ(size, QSize(120, 80) * shown.effectiveDevicePixelRatio());
}

TEST_F(Capture, TakesAHiddenWindowWhereNoneIsVisible) {
  QQuickWindow hidden;
  paint(hidden, Qt::red, {100, 100});
  EXPECT_EQ(captureWindow(path, false), 0);
  EXPECT_EQ(captured(), QColor(Qt::red));
}

TEST_F(Capture, EndsWellWhereTheFileCannotBeWritten) {
  QQuickWindow window;
  paint(window, Qt::red, {100, 100});
  window.show();
  for (const bool asOnScreen : {false, true}) {
    EXPECT_EQ(captureWindow(folder.filePath("no/such/folder.png"), asOnScreen), 0);
    EXPECT_EQ(captureWindow("", asOnScreen), 0);
  }
}

TEST_F(Capture, SizesTheFirstWindowButNotBelowItsLeast) {
  resizeFirstWindow({300, 200});
  QQuickWindow window;
  window.setMinimumSize({100, 90});
  resizeFirstWindow({300, 200});
  EXPECT_EQ(window.size(), QSize(300, 200));
  resizeFirstWindow({1, 120});
  EXPECT_EQ(window.size(), QSize(100, 120));
}

}  // namespace
}  // namespace vellix
