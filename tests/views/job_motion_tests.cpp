// What moves while the worker is busy, and when it rests.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class JobMotion : public ViewTest {
 protected:
  void showView(const QString& view, QVariantMap properties = {}) {
    show(view, properties, {400, 60});
    theme()->setReducedMotion(false);
    root = qobject_cast<QQuickView*>(window())->rootObject();
  }
  // Of the timers and animations that belong to the view.
  int running() {
    int count = 0;
    for (const QObject* each : root->findChildren<QObject*>()) {
      const QByteArray type = each->metaObject()->className();
      const bool moves = type == "QQmlTimer" || type.contains("Animation");
      if (moves && each->property("running").toBool()) ++count;
    }
    return count;
  }
  void hide() {
    window()->hide();
    QCoreApplication::processEvents();
  }
  void minimise() {
    window()->showMinimized();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window()->visibility() == QWindow::Minimized; }));
  }
  std::set<QRgb> colours() {
    settle();
    const QImage picture = window()->grabWindow();
    std::set<QRgb> all;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) all.insert(picture.pixel(x, y));
    }
    return all;
  }
  QString line() { return root->property("text").toString(); }

  QQuickItem* root = nullptr;
};

TEST_F(JobMotion, OfTheCreatureBobsWhileBusy) {
  showView("Jobs/ClaudeCritter", {{"busy", true}});
  const QQuickItem* drawing = seen(root, "CritterDrawing").value(0);
  ASSERT_TRUE(drawing);
  EXPECT_TRUE(QTest::qWaitFor([&] { return drawing->y() == -2; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return drawing->y() == 0; }));
  root->setProperty("busy", false);
  EXPECT_EQ(running(), 0);
}

TEST_F(JobMotion, OfTheCreatureRestsAtItsPlace) {
  showView("Jobs/ClaudeCritter", {{"busy", true}});
  const QQuickItem* drawing = seen(root, "CritterDrawing").value(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return drawing->y() == -2; }));
  root->setProperty("busy", false);
  EXPECT_TRUE(QTest::qWaitFor([&] { return drawing->y() == 0; }));
  EXPECT_FALSE(root->property("up").toBool());
}

TEST_F(JobMotion, OfTheCreatureLeavesItSharp) {
  for (const double size : {11.0, 15.0, 16.0, 24.0}) {
    showView("Jobs/ClaudeCritter", {{"size", size}});
    EXPECT_EQ(colours(), (std::set<QRgb>{qRgb(255, 255, 255), theme()->accent().rgb()})) << size;
  }
}

TEST_F(JobMotion, CostsNothingWhenHidden) {
  const std::vector<std::pair<QString, QVariantMap>> moving{
      {"Jobs/ClaudeCritter", {{"busy", true}}},
      {"Jobs/WorkingLine", {}},
      {"Jobs/ReportProgress", {{"text", "Almost ready…"}}},
      {"Pieces/Spinner", {}},
      {"Pieces/DashedRing", {{"spinning", true}}},
      {"Pieces/SorelMark", {{"working", true}}}};
  for (const auto& [view, properties] : moving) {
    SCOPED_TRACE(view.toStdString());
    showView(view, properties);
    EXPECT_GT(running(), 0);
    root->setVisible(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return running() == 0; })) << "invisible";
    root->setVisible(true);
    EXPECT_GT(running(), 0);
    minimise();
    EXPECT_TRUE(QTest::qWaitFor([this] { return running() == 0; })) << "minimised";
    window()->showNormal();
    EXPECT_TRUE(QTest::qWaitFor([this] { return running() > 0; }));
    hide();
    EXPECT_TRUE(QTest::qWaitFor([this] { return running() == 0; })) << "hidden";
  }
}

TEST_F(JobMotion, EndsWhereItIsReduced) {
  showView("Jobs/ClaudeCritter", {{"busy", true}});
  theme()->setReducedMotion(true);
  EXPECT_EQ(running(), 0);
  showView("Jobs/WorkingLine");
  theme()->setReducedMotion(true);
  EXPECT_EQ(root->property("phase").toReal(), -1) << "no light lies on the line";
  EXPECT_EQ(running(), 1) << "the next line still comes";
}

TEST_F(JobMotion, OfTheLineRunsFromEndToEnd) {
  showView("Jobs/WorkingLine");
  const auto phase = [this] { return root->property("phase").toReal(); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return phase() > -0.9 && phase() < 0; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return phase() > 0.5; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return phase() < 0; })) << "it begins anew";
}

TEST_F(JobMotion, TellsOneLineAfterTheOther) {
  showView("Jobs/WorkingLine", {{"who", "Claude"}});
  EXPECT_EQ(line(), "Claude is percolating…");
  root->setProperty("n", 7);
  EXPECT_EQ(line(), "Claude is holding it up to the light…");
  root->setProperty("n", 8);
  EXPECT_EQ(line(), "Claude is percolating…");
  EXPECT_TRUE(reader().find("Claude is percolating…", QAccessible::StaticText));
}

TEST_F(JobMotion, CutsALongLineShort) {
  showView("Jobs/WorkingLine", {{"who", QString(400, 'm')}});
  const QQuickItem* shimmer = seen(root, "ShimmerText").value(0);
  ASSERT_TRUE(shimmer);
  EXPECT_EQ(shimmer->width(), 400);
}

// Where the light is shows in the pixels.
TEST_F(JobMotion, LightsTheLineWhereTheLightIs) {
  showView("Jobs/WorkingLine");
  theme()->setReducedMotion(true);
  QQuickItem* shimmer = seen(root, "ShimmerText").value(0);
  const QColor accent = theme()->accent();
  const auto lit = [&] {
    return std::ranges::count_if(colours(), [&](QRgb rgb) {
      return qRed(rgb) > qBlue(rgb) + 100 && qRed(rgb) <= accent.red() + 20;
    });
  };
  EXPECT_EQ(lit(), 0);
  shimmer->setProperty("phase", 0);
  EXPECT_GT(lit(), 0);
  shimmer->setProperty("phase", 1);
  EXPECT_EQ(lit(), 0);
}

}  // namespace
}  // namespace vellix
