// How the lines of the list look, to the measure.
#include <QFont>
#include <QQuickView>
#include <QTest>

#include "bridge/value.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class RowLooks : public ViewTest {
 protected:
  QQuickItem* root() { return qobject_cast<QQuickView*>(window())->rootObject(); }
  QList<QQuickItem*> all(const char* type) { return seen(window()->contentItem(), type); }
  void give(const char* name, const QVariant& value) {
    root()->setProperty(name, value);
    settle();
  }
  QColor tone(const char* name) { return theme()->fore()->property(name).value<QColor>(); }
  void expectFace(const QString& words, double size, int weight) {
    const QQuickItem* label = seenText(window()->contentItem(), words);
    ASSERT_TRUE(label) << words.toStdString();
    EXPECT_EQ(label->property("size").toDouble(), size);
    EXPECT_EQ(label->property("font").value<QFont>().weight(), weight);
  }
  // A ticket with everything that a row can show.
  static FileRowView full() {
    return {.id = "t1",
            .heading = "The Lighthouse",
            .subline = "PO 7",
            .thumb = "thumb-1",
            .due = DueChipView{.text = "Overdue 5 min",
                               .shortText = "Late 5 min",
                               .tinyText = "Late 5 min",
                               .icon = "clock",
                               .tone = "red"},
            .count = {.text = "2", .icon = "", .tone = "red", .help = "2 real issues"},
            .assignee = AvatarView{.letter = "r", .color = "", .photo = "", .help = "Renny Vale"},
            .spoken = "PO 7",
            .selected = false};
  }
  void showRow(const FileRowView& row) {
    show("Board/FileRow", {{"ticket", toQml(row)}, {"pictures", models()["pictures"]}}, {260, 90});
  }
  // What lies under a row, once it has faded.
  bool groundComesTo(double opacity) {
    return QTest::qWaitFor([&] {
      window()->grabWindow();
      return ground()->opacity() == opacity;
    });
  }
  QQuickItem* ground() {
    for (QQuickItem* child : root()->childItems()) {
      if (isOfType(child, "QQuickRectangle") && !isOfType(child, "FocusRing")) return child;
    }
    return nullptr;
  }
};

TEST_F(RowLooks, OfACount) {
  struct Case {
    FileCountView count;
    QColor colour;
    bool filled;
  };
  for (const auto& [count, colour, filled] : std::vector<Case>{
           {{.text = "2", .icon = "", .tone = "red", .help = "2 real issues"}, tone("red"), true},
           {{.text = "3", .icon = "", .tone = "accent", .help = "3 to look at"},
            theme()->accent(),
            false},
           {{.text = "", .icon = "checkmark.circle.fill", .tone = "green", .help = ""},
            theme()->success(),
            false},
           {{.text = "", .icon = "equal.circle", .tone = "muted", .help = "No differences"},
            theme()->muted(),
            false},
           {{.text = "", .icon = "questionmark.circle", .tone = "muted", .help = "Nothing"},
            theme()->muted(),
            false}}) {
    SCOPED_TRACE(count.text + count.icon);
    show("Board/FileCount", {{"count", toQml(count)}}, {40, 18});
    const auto badges = all("CountBadge");
    const auto symbols = all("Symbol");
    ASSERT_EQ(badges.size() + symbols.size(), 1);
    if (count.icon.empty()) {
      ASSERT_EQ(badges.size(), 1);
      EXPECT_EQ(colourOf(badges[0], "colour"), colour);
      EXPECT_EQ(badges[0]->property("filled").toBool(), filled);
      EXPECT_EQ(colourOf(badges[0]) == Theme::underWhite(colour), filled) << "or tinted";
      const auto digits = seen(badges[0], "Digits");
      ASSERT_EQ(digits.size(), 1);
      EXPECT_EQ(colourOf(digits[0]), filled ? QColor(Qt::white) : colour);
      EXPECT_EQ(digits[0]->property("size").toDouble(), 11);
      EXPECT_EQ(digits[0]->property("weight").toInt() == QFont::Bold, filled);
    } else {
      ASSERT_EQ(symbols.size(), 1);
      EXPECT_EQ(symbols[0]->property("name").toString().toStdString(), count.icon);
      EXPECT_EQ(symbols[0]->property("size").toDouble(), 13);
      EXPECT_EQ(colourOf(symbols[0]), colour);
    }
  }
}

TEST_F(RowLooks, OfAGroupsHeader) {
  show("Board/GroupHeader",
       {{"title", "To review"}, {"folds", false}, {"open", false}, {"count", ""}}, {260, 34});
  expectFace("To review", 11, QFont::Bold);
  const QFont font =
      seenText(window()->contentItem(), "To review")->property("font").value<QFont>();
  EXPECT_EQ(font.letterSpacing(), 0.5);
  EXPECT_EQ(font.capitalization(), QFont::AllUppercase);
  EXPECT_TRUE(all("Digits").isEmpty());
  EXPECT_TRUE(all("Symbol").isEmpty());
}

TEST_F(RowLooks, OfAFoldingHeader) {
  show("Board/GroupHeader",
       {{"title", "Reviewed"}, {"folds", true}, {"open", false}, {"count", "3"}}, {260, 34});
  const auto digits = all("Digits");
  ASSERT_EQ(digits.size(), 1);
  EXPECT_EQ(digits[0]->property("text").toString(), "3");
  const auto chevrons = all("Symbol");
  ASSERT_EQ(chevrons.size(), 1);
  EXPECT_EQ(chevrons[0]->property("name").toString(), "chevron.right");
  EXPECT_EQ(chevrons[0]->rotation(), 0);
  give("open", true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return chevrons[0]->rotation() == 90; }));
}

TEST_F(RowLooks, OfATicket) {
  showRow(full());
  expectFace("The Lighthouse", 13, QFont::DemiBold);
  expectFace("PO 7", 11.5, QFont::Normal);
  const auto thumbs = all("RemoteImage");
  ASSERT_EQ(thumbs.size(), 1);
  EXPECT_EQ(thumbs[0]->size(), QSizeF(30, 38));
  EXPECT_EQ(thumbs[0]->property("key").toString(), "thumb-1");
  const auto avatars = all("Avatar");
  ASSERT_EQ(avatars.size(), 1);
  EXPECT_EQ(avatars[0]->size(), QSizeF(16, 16));
  const double height = root()->implicitHeight();
  FileRowView bare = full();
  bare.subline.clear();
  give("ticket", toQml(bare));
  EXPECT_EQ(root()->implicitHeight(), height) << "the sub-line is there when nothing is in it";
}

TEST_F(RowLooks, OfATicketThatLosesItsDueDateAndItsReviewer) {
  showRow(full());
  ASSERT_EQ(all("DueChip").size(), 1);
  FileRowView bare = full();
  bare.due.reset();
  give("ticket", toQml(bare));
  EXPECT_TRUE(all("DueChip").isEmpty());
  EXPECT_EQ(all("Avatar").size(), 1);
  bare.assignee.reset();
  give("ticket", toQml(bare));
  EXPECT_TRUE(all("Avatar").isEmpty());
  give("ticket", toQml(full()));
  EXPECT_EQ(all("DueChip").size(), 1);
  EXPECT_EQ(all("Avatar").size(), 1);
}

TEST_F(RowLooks, OfPillsAndCountsOnASelectedRow) {
  FileRowView row = full();
  row.approval = PillView{.text = "Changes", .icon = "arrow.uturn.backward", .tone = "red"};
  row.count = {.text = "3", .icon = "", .tone = "accent", .help = "3 to look at"};
  showRow(row);
  const auto bedded = [&] {
    int count = 0;
    for (const char* type : {"Pillbox", "CountBadge"}) {
      for (const QQuickItem* each : all(type)) {
        for (QQuickItem* child : each->childItems()) {
          count += child->isVisible() && child->z() < 0 && child->size() == each->size() &&
                   colourOf(child) == theme()->pillBed();
        }
      }
    }
    return count;
  };
  EXPECT_EQ(bedded(), 0);
  row.selected = true;
  give("ticket", toQml(row));
  EXPECT_EQ(bedded(), 3);
}

// Words that are not the first of their place, and are read all the same.
TEST_F(RowLooks, OfWhatIsMuted) {
  struct Case {
    const char* view;
    QVariantMap values;
    QString words;
  };
  for (const auto& [view, values, words] :
       std::vector<Case>{{"Compare/NoRef",
                          {{"what", "No FBC"}, {"why", "It was never made."}},
                          "It was never made."},
                         {"Ticket/FactTile", {{"label", "PO"}, {"value", "7781"}}, "PO"},
                         {"Board/ActivityLine",
                          {{"key", "7"},
                           {"avatar", toQml(AvatarView{})},
                           {"who", "Renny"},
                           {"said", "signed in"},
                           {"when", "2 min ago"},
                           {"where", "The Lighthouse"},
                           {"spoken", "Renny signed in"},
                           {"pictures", models()["pictures"]}},
                          "2 min ago · The Lighthouse"},
                         {"Board/FileList",
                          {{"board", models()["board"]}, {"pictures", models()["pictures"]}},
                          "Press Sync to check supplier mail."}}) {
    SCOPED_TRACE(view);
    show(view, values, {300, 400});
    const QQuickItem* label = seenText(window()->contentItem(), words);
    ASSERT_TRUE(label);
    EXPECT_EQ(colourOf(label), theme()->muted());
  }
}

TEST_F(RowLooks, OfTheGround) {
  showRow(full());
  ASSERT_TRUE(ground());
  EXPECT_EQ(ground()->size(), root()->size());
  EXPECT_EQ(ground()->opacity(), 0);
  QTest::mouseMove(window(), {130, 30});
  EXPECT_TRUE(groundComesTo(1));
  EXPECT_EQ(colourOf(ground()), theme()->hoverFill());
  FileRowView row = full();
  row.selected = true;
  give("ticket", toQml(row));
  EXPECT_EQ(colourOf(ground()), theme()->selectedFill());
  const auto* border = ground()->property("border").value<QObject*>();
  EXPECT_EQ(border->property("width").toInt(), 1);
  EXPECT_EQ(colourOf(border), theme()->selectedLine());
  give("ticket", toQml(full()));
  EXPECT_EQ(border->property("width").toInt(), 0);
  QTest::mouseMove(window(), {259, 89});
  QTest::mouseMove(window(), {-5, -5});
  EXPECT_TRUE(groundComesTo(0));
}

}  // namespace
}  // namespace vellix
