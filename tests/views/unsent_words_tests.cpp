#include "shell/unsent_words.hpp"

#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class UnsentWords : public ViewTest {
 protected:
  UnsentWords() {
    serveTheDay();
    showMain({1500, 940});
  }
  bool held() { return holdUnsentWords({window()}); }
  QQuickItem* composer() {
    const auto* composer = seen(window()->contentItem(), "Composer").value(0);
    return composer ? seen(composer, "QQuickTextEdit").value(0) : nullptr;
  }
};

TEST_F(UnsentWords, AreNoneToBeginWith) { EXPECT_FALSE(held()); }

TEST_F(UnsentWords, AreThoseOfANoteThatIsBeingWritten) {
  ASSERT_TRUE(composer());
  composer()->setProperty("text", "Too dark");
  EXPECT_TRUE(held());
  composer()->setProperty("text", " \n");
  EXPECT_FALSE(held());
}

TEST_F(UnsentWords, AreNoneInWhatIsClosed) {
  composer()->setProperty("text", "Too dark");
  composer()->setEnabled(false);
  EXPECT_FALSE(held());
}

TEST_F(UnsentWords, WaitBehindAPersonsPage) {
  composer()->setProperty("text", "Too dark");
  store().openProfile("jorvas@tessarine.example");
  settle();
  EXPECT_FALSE(composer());
  EXPECT_TRUE(held());
}

}  // namespace
}  // namespace vellix
