// Which of the two appearances is shown: the person's choice, else the desktop's, else what its
// palette looks like.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include "pieces/Theme.hpp"

namespace vellix {
namespace {

constexpr Look kUnset{};
constexpr Look kLight{.scheme = Scheme::light};
constexpr Look kDark{.scheme = Scheme::dark};

class ThemeTest : public testing::Test {
 protected:
  ThemeTest() { setPalette(Qt::white); }
  void TearDown() override { QGuiApplication::setPalette(QPalette()); }

  static void setPalette(const QColor& window) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
  }

  Theme theme_;
};

TEST_F(ThemeTest, ObeysTheChoiceAndThenTheSystem) {
  struct Case {
    const char* appearance;
    Look system;
    bool dark;
  };
  const Case cases[] = {
      {"system", kUnset, false}, {"system", kLight, false}, {"system", kDark, true},
      {"light", kDark, false},   {"light", kUnset, false},  {"dark", kLight, true},
      {"dark", kUnset, true},    {"sepia", kDark, true},    {"sepia", kLight, false},
      {"", kDark, true},         {"DARK", kLight, false},
  };
  for (const Case& c : cases) {
    theme_.setAppearance(c.appearance);
    theme_.followSystem(c.system);
    EXPECT_EQ(theme_.dark(), c.dark) << c.appearance << ' ' << static_cast<int>(c.system.scheme);
    EXPECT_EQ(theme_.window(), QColor(c.dark ? "#12100f" : "#f3f6f7"));
  }
}

TEST_F(ThemeTest, FollowsTheSystemLive) {
  QSignalSpy changes(&theme_, &Theme::darkChanged);
  theme_.followSystem(kDark);
  theme_.followSystem(kDark);
  EXPECT_EQ(changes.size(), 1);
  theme_.followSystem(kLight);
  EXPECT_EQ(changes.size(), 2);
  theme_.setAppearance("light");
  theme_.followSystem(kDark);
  EXPECT_EQ(changes.size(), 2);
}

TEST_F(ThemeTest, LooksAtThePaletteWhileTheSystemSaysNothing) {
  setPalette(Qt::black);
  EXPECT_TRUE(theme_.dark());
  theme_.followSystem(kLight);
  EXPECT_FALSE(theme_.dark());
  theme_.followSystem(kUnset);
  EXPECT_TRUE(theme_.dark());
  setPalette(Qt::white);
  EXPECT_FALSE(theme_.dark());
}

TEST_F(ThemeTest, IsStillWhenTheSystemAsksForIt) {
  QSignalSpy changes(&theme_, &Theme::motionChanged);
  EXPECT_GT(theme_.standard(), 0);
  theme_.followSystem({.reducedMotion = true});
  EXPECT_TRUE(theme_.reducedMotion());
  EXPECT_EQ(theme_.standard(), 0);
  EXPECT_EQ(theme_.hover(), 0);
  EXPECT_EQ(changes.size(), 1);
  theme_.followSystem(kUnset);
  EXPECT_FALSE(theme_.reducedMotion());
}

}  // namespace
}  // namespace vellix
