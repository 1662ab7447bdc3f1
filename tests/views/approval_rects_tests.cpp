// Where the card lays its words and its buttons.
#include <algorithm>

#include "views/approval_views_test.hpp"
#include "views/sights.hpp"

namespace vellix {
namespace {

// From this width on, the card has room for its buttons beside its words.
constexpr int kWide = 640;
constexpr int kWidths[] = {1'500, kWide, 500};

struct Case {
  const char* state;
  int approvers;
};
BOOST_DESCRIBE_STRUCT(Case, (), (state, approvers))

class CardRects : public ApprovalViewsTest, public testing::WithParamInterface<Case> {
 protected:
  struct Part {
    std::string name;
    QRectF rect;
  };

  static std::string approver(int i) {
    return "approver-" + std::to_string(i) + "@tessarine.example";
  }
  static void prepare(FileItem& file) {
    file.version = 2;
    if (*GetParam().state) file.approval = GetParam().state;
    file.links = Links{.gmail = "https://mail.example/"};
    file.share = ShareInfo{.enabled = true, .url = "https://proofs.example/s/1"};
  }
  static Approval round() {
    Approval approval{.note = "Look at p3, and at the foot of each of the pages after it"};
    for (int i = 0; i < GetParam().approvers; ++i) {
      approval.asked.push_back(approver(i));
      if (i % 3 == 0) approval.answers[approver(i)] = {.kind = "changes", .note = "Too dark"};
      if (i % 3 == 1) approval.answers[approver(i)] = {.kind = "approved"};
    }
    return approval;
  }
  void showRound() {
    change([](BoardState& board) { prepare(board.files[0]); });
    FileDetail detail = lighthouse();
    prepare(detail.file);
    detail.version = 2;
    detail.versions = std::vector<Version>{{.n = 1}, {.n = 2, .summary = "One word differs."}};
    if (*GetParam().state) detail.approval = round();
    tell(detail);
    showCard({kWidths[0], 940});
    settle();
  }

  QList<QQuickItem*> buttons() { return seen(window()->contentItem(), "Pill"); }
  QRectF heading() {
    const QStringList titles = reader().names(QAccessible::Heading);
    QQuickItem* label = titles.empty() ? nullptr : seenText(window()->contentItem(), titles[0]);
    EXPECT_TRUE(label);
    return label ? label->mapRectToScene(label->boundingRect()) : QRectF{};
  }
  QRectF buttonsRect() {
    QRectF all;
    for (const auto* each : buttons()) all |= each->mapRectToScene(each->boundingRect());
    return all;
  }
  // The texts outside of the buttons, and the buttons.
  std::vector<Part> parts() {
    std::vector<Part> all;
    const auto pills = buttons();
    const auto add = [&](const QQuickItem* item, const char* name) {
      all.push_back({item->property(name).toString().toStdString(),
                     item->mapRectToScene(item->boundingRect())});
    };
    for (const auto* pill : pills) add(pill, "label");
    for (const auto* label : seen(window()->contentItem(), "Label")) {
      const auto holds = [&](const QQuickItem* pill) { return pill->isAncestorOf(label); };
      if (std::ranges::none_of(pills, holds)) add(label, "text");
    }
    return all;
  }
};

TEST_P(CardRects, DoNotCross) {
  showRound();
  for (const int width : kWidths) {
    resize({width, 940});
    const auto all = parts();
    ASSERT_GE(all.size(), 2U);
    for (std::size_t i = 0; i < all.size(); ++i) {
      EXPECT_GE(all[i].rect.left(), 0) << all[i].name << " at " << width;
      EXPECT_LE(all[i].rect.right(), width) << all[i].name;
      for (std::size_t j = 0; j < i; ++j) {
        const QRectF both = all[i].rect & all[j].rect;
        EXPECT_FALSE(both.width() > 0.5 && both.height() > 0.5)
            << all[i].name << " lies over " << all[j].name << " at " << width;
      }
    }
  }
}

TEST_P(CardRects, HaveTheButtonsBesideTheWordsWhereThereIsRoom) {
  showRound();
  for (const int width : kWidths) {
    resize({width, 940});
    ASSERT_EQ(buttons().empty(), std::string_view{GetParam().state} == "sent");
    if (buttons().empty()) return;
    const QRectF pressed = buttonsRect();
    if (width >= kWide) {
      const QRectF title = heading();
      EXPECT_GT(pressed.left(), title.right()) << "right of the title at " << width;
      EXPECT_LT(pressed.top(), title.bottom()) << "level with it";
      EXPECT_GT(pressed.bottom(), title.top()) << "level with it";
      continue;
    }
    for (const auto& part : parts()) {
      EXPECT_TRUE(part.rect.bottom() <= pressed.top() || pressed.contains(part.rect))
          << part.name << " is not over the buttons at " << width;
    }
  }
}

std::vector<Case> cases() {
  std::vector<Case> all;
  for (const char* state : {"", "pending", "changes", "revised", "approved", "sent"}) {
    for (const int approvers : {1, 30}) all.push_back({state, approvers});
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(All, CardRects, testing::ValuesIn(cases()), [](const auto& each) {
  const std::string state = *each.param.state ? each.param.state : "none";
  return state + "_" + std::to_string(each.param.approvers);
});

}  // namespace
}  // namespace vellix
