// How one ticket's view gives way to another's.
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class TicketChange : public ViewTest {
 protected:
  TicketChange() {
    serveTheDay();
    store().select({"t1"});
    desk.time.run();
    showMain({1500, 940});
    settle();
  }
  QList<QQuickItem*> views() { return seen(window()->contentItem(), "FileView"); }
};

// What it is made of would be laid out in it for nothing.
TEST_F(TicketChange, LetsTheLastViewGoBeforeItsModelsTurn) {
  ASSERT_EQ(views().size(), 1);
  auto* file = window()->property("file").value<FileModel*>();
  ASSERT_TRUE(file);
  qsizetype told = -1;
  QObject::connect(file, &FileModel::headerChanged, window(), [&] { told = views().size(); });
  store().select({"t2"});
  settle();
  EXPECT_EQ(told, 0);
  EXPECT_EQ(views().size(), 1);
  EXPECT_EQ(file->ticket(), "t2");
}

}  // namespace
}  // namespace vellix
