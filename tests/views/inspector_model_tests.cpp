// What the findings panel tells its view.
#include "inspector/InspectorModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class InspectorModels : public StoreTest {
 protected:
  static FileDetail ticket(std::vector<Finding> findings, Int rev = 1) {
    FileDetail detail = detailOf(ticketAt("t1", rev), std::move(findings));
    detail.file.pages = pagesOf(3);
    for (auto& page : *detail.file.pages) page.refs = {{"submitted", RefPage{}}};
    return detail;
  }
  void serve(const FileDetail& detail) {
    FileItem file = detail.file;
    file.pages.reset();
    const std::string tag = std::to_string(*file.rev);
    serveBoard(boardOf({file}), "\"b" + tag + "\"");
    serveDetail(detail, "\"d" + tag + "\"");
  }
  // The ticket is on show when the model comes up.
  InspectorModel& model() {
    if (!model_) model_.emplace(store(), desk.time, desk.calendar);
    return *model_;
  }
  QString id(int card) { return fieldOf(model().cards(), card, "id").toString(); }

 private:
  std::optional<InspectorModel> model_;
};

TEST_F(InspectorModels, KeepTheCardsAcrossAPoll) {
  serve(ticket({findingOf("f1"), findingOf("f2"), findingOf("f3", 1)}));
  poll();
  ASSERT_EQ(model().cards()->rowCount(), 2);
  ASSERT_EQ(model().others()->rowCount(), 1);
  Operations cards{model().cards()};
  Operations others{model().others()};
  const QSignalSpy heads{&model(), &InspectorModel::headChanged};
  poll();
  auto findings = ticket({findingOf("f1"), findingOf("f2"), findingOf("f3", 1)}, 2);
  serve(findings);
  poll();
  ASSERT_EQ(detailRequests(), 2U);
  EXPECT_EQ(cards.take(), Lines{});
  EXPECT_EQ(others.take(), Lines{});
  EXPECT_EQ(heads.count(), 0);
  findings.findings[1].title = "Two words changed";
  findings.file.rev = 3;
  serve(findings);
  poll();
  EXPECT_EQ(cards.take(), Lines{"change 1-1 title"});
}

TEST_F(InspectorModels, MoveADecidedCardDown) {
  serve(ticket({findingOf("f1"), findingOf("f2"), findingOf("f3")}));
  poll();
  ASSERT_EQ(id(0), "f1");
  Operations cards{model().cards()};
  model().fine("f1");
  desk.time.run();
  EXPECT_EQ(cards.take(),
            (Lines{"move 0>3", "change 2-2 decision fine busy folds decided foldedHelp"}));
  EXPECT_EQ(id(2), "f1");
  const auto sent = desk.http.matching("POST api/findings/f1");
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0]->request.body, R"({"state":"fine"})");
}

TEST_F(InspectorModels, BringAReopenedCardBackUp) {
  auto decided = findingOf("f1");
  decided.state = "issue";
  serve(ticket({decided, findingOf("f2")}));
  poll();
  ASSERT_EQ(id(1), "f1");
  Operations cards{model().cards()};
  model().realIssue("f1");
  desk.time.run();
  EXPECT_EQ(id(0), "f1");
  const auto told = cards.take();
  EXPECT_TRUE(std::ranges::any_of(told, [](const auto& line) { return line.starts_with("move"); }));
  EXPECT_FALSE(std::ranges::any_of(told, [](const auto& line) {
    return line.starts_with("insert") || line.starts_with("remove");
  }));
}

TEST_F(InspectorModels, LetTheMinutesPassWithThePolls) {
  auto decided = findingOf("f1");
  decided.state = "issue";
  decided.state_by = "jorvas@tessarine.example";
  decided.state_at = wireOf(desk.time.now()) - 120'000;
  serve(ticket({decided}));
  poll();
  model();
  Operations cards{model().cards()};
  desk.time.advance(Milliseconds{60'000});
  poll();
  EXPECT_EQ(cards.take(), Lines{"change 0-0 decided foldedHelp"});
}

TEST_F(InspectorModels, AreEmptiedBySigningOut) {
  serve(ticket({findingOf("f1"), findingOf("f2", 1)}));
  poll();
  ASSERT_GT(model().cards()->rowCount(), 0);
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(model().cards()->rowCount(), 0);
  EXPECT_EQ(model().others()->rowCount(), 0);
  EXPECT_EQ(model().head()["title"].toString(), "");
}

TEST_F(InspectorModels, SelectByPressing) {
  serve(ticket({findingOf("f1"), findingOf("f2")}));
  poll();
  Operations cards{(model().cards())};
  model().press("f2");
  desk.time.run();
  EXPECT_EQ(cards.take(), Lines{"change 1-1 selected"});
  EXPECT_EQ(store().focus(), "f2");
}

TEST_F(InspectorModels, GoToAnotherPageAndLetGoOfTheFocus) {
  serve(ticket({findingOf("f1"), findingOf("f2", 2)}));
  poll();
  ASSERT_EQ(fieldOf(model().others(), 0, "name").toString(), "Page 3");
  store().focus.set("f1");
  model().goToPage(fieldOf(model().others(), 0, "page").toLongLong());
  desk.time.run();
  EXPECT_EQ(store().page().at("t1"), 2);
  EXPECT_FALSE(store().focus());
  EXPECT_EQ(model().head()["title"].toString(), "Page 3");
  EXPECT_EQ(id(0), "f2");
}

TEST_F(InspectorModels, AnswerNoPressWithoutATicket) {
  model().goToPage(2);
  model().press("f1");
  model().fine("f1");
  desk.time.run();
  EXPECT_TRUE(store().page().empty());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

}  // namespace
}  // namespace vellix
