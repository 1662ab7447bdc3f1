// A long text that is pasted into a note: it stays what it is, to the character, and the keyboard
// goes on in it.
#include <QClipboard>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickTextDocument>
#include <QTextBlock>
#include <QTextLayout>

#include "pieces/LongText.hpp"
#include "views/notes_test.hpp"

namespace vellix {
namespace {

struct Paste {
  const char* name;
  const char* piece;
};
BOOST_DESCRIBE_STRUCT(Paste, (), (name, piece))

class LongNotes : public NotesViewTest, public testing::WithParamInterface<Paste> {
 protected:
  static constexpr int kMuch = 20'000;  // UTF-8 bytes

  LongNotes() {
    serveTheDay();
    store().details.set({{"t1", withNotes({})}});
    desk.time.run();
    show("Notes/NotesSection", {{"notes", models()["notes"]}, {"pictures", models()["pictures"]}},
         {300, 700});
    calm();
    focus(field(kField));
  }
  static QString longText() {
    return QString::fromUtf8(GetParam().piece).repeated(kMuch / qstrlen(GetParam().piece));
  }
  void paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    key(Qt::Key_V, Qt::ControlModifier);
  }
  QTextDocument* document() {
    return field(kField)->property("textDocument").value<QQuickTextDocument*>()->textDocument();
  }
  int caret() { return field(kField)->property("cursorPosition").toInt(); }
};

TEST_P(LongNotes, AreSentToTheCharacter) {
  type("(");
  paste(longText());
  type(")");
  EXPECT_EQ(caret(), longText().size() + 2);
  key(Qt::Key_Return, Qt::ControlModifier);
  const auto bodies = posted("api/comments");
  ASSERT_EQ(bodies.size(), 1U);
  const auto body = QJsonDocument::fromJson(QByteArray::fromStdString(bodies[0])).object();
  EXPECT_EQ(body["text"].toString(), '(' + longText() + ')');
}

TEST_P(LongNotes, AreTakenBackAtOnce) {
  type("Before ");
  paste(longText());
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(textOf(field(kField)), "Before ");
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(textOf(field(kField)), "Before " + longText());
}

TEST_P(LongNotes, AreCopiedToTheCharacter) {
  paste(longText());
  key(Qt::Key_Left, Qt::ShiftModifier);
  key(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
  QGuiApplication::clipboard()->clear();
  key(Qt::Key_A, Qt::ControlModifier);
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), longText());
}

// A paragraph's shapes are worked out once a key, and held no longer than it is long.
TEST_P(LongNotes, KeepTheShapesOfEachLongParagraph) {
  const auto expectKept = [this] {
    for (auto each = document()->begin(); each.isValid(); each = each.next()) {
      EXPECT_EQ(each.layout()->cacheEnabled(), each.length() > LongText::kLong)
          << each.blockNumber() << ", " << each.length();
    }
  };
  type("Short");
  expectKept();
  key(Qt::Key_Return);
  paste(longText());
  expectKept();
  key(Qt::Key_Home, Qt::ControlModifier);
  type("More");
  expectKept();
  key(Qt::Key_A, Qt::ControlModifier);
  type("All gone");
  expectKept();
}

INSTANTIATE_TEST_SUITE_P(
    Of, LongNotes,
    testing::Values(Paste{"OneParagraph", "the harbour was grey at first light 1 "},
                    Paste{"ManyLines", "the harbour was grey\n"}, Paste{"OneWord", "abcdefghij"},
                    Paste{"Chinese", "这份校样与供应商的副本在第二行和页码上有所不同，请检查。"},
                    Paste{"Hebrew", "ההגהה שונה מהעותק של הספק "},
                    Paste{"Emoji", "\U0001F600\U0001F44D\U0001F3FD\U0001F468\u200D\U0001F469"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
