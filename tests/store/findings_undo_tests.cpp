// Taking a decision on a finding back.
#include "store/finding_test.hpp"

namespace vellix {
namespace {

constexpr const char* kPost = "POST api/findings/f1";

class UndoneFinding : public FindingTest {
 protected:
  void SetUp() override {
    show({findingOf("f1"), findingOf("f2")});
    routes.set(kPost, answerOf(200, "{}"));
  }
  // The service carries the change out; the toast that offers Undo.
  Toast carriedOut(const Finding& finding, const std::string& state, Int rev = 2) {
    serve({stateOf(finding, state)}, rev);
    decide(finding, state);
    return desk.toast().value();
  }
  std::string lastBody() { return *desk.http.matching(kPost).back()->request.body; }
};

TEST_F(UndoneFinding, GoesBackToWhatItWas) {
  const Toast toast = carriedOut(findingOf("f1"), "fine");
  serve({findingOf("f1")}, 3);
  toast.undo();
  EXPECT_EQ(held().state, "open") << "at once";
  desk.time.run();
  EXPECT_EQ(lastBody(), R"({"state":"open"})");
  EXPECT_EQ(desk.toastText(), "Reopened.");
  EXPECT_EQ(desk.toast()->undoLabel, "Undo");
}

TEST_F(UndoneFinding, GoesBackToFineWhenItWasFineBefore) {
  const Finding fine = stateOf(findingOf("f1"), "fine");
  const Toast toast = carriedOut(fine, "issue");
  serve({fine}, 3);
  toast.undo();
  desk.time.run();
  EXPECT_EQ(lastBody(), R"({"state":"fine"})");
  EXPECT_EQ(desk.toastText(), "Marked fine.");
  EXPECT_EQ(held().state, "fine");
}

TEST_F(UndoneFinding, CanBeUndoneAgain) {
  carriedOut(findingOf("f1"), "issue").undo();
  serve({findingOf("f1")}, 3);
  desk.time.run();
  // The second Undo knows the finding of the first call, which was open.
  ASSERT_EQ(desk.toastText(), "Reopened.");
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(posts(), 3U);
  EXPECT_EQ(lastBody(), R"({"state":"open"})");
}

TEST_F(UndoneFinding, WhileTheChangeIsStillBeingRefreshedIsARequestOfItsOwn) {
  routes.leaveOpen(kPost);
  decide(findingOf("f1"), "issue");
  answer(0, answerOf(200, "{}"));  // the board stays open
  ASSERT_TRUE(desk.toast());
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(posts(), 2U);
  EXPECT_EQ(held().state, "open");
  EXPECT_TRUE(store().busy().contains("f1"));
  serve({findingOf("f1")}, 3);
  answer(1, answerOf(200, jsonOf(boardOf({ticketAt("t1", 1)}))));
  answer(2, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Reopened.");
  EXPECT_EQ(held().state, "open");
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(UndoneFinding, DoesNothingOnceTheStoreIsGone) {
  const Toast toast = carriedOut(findingOf("f1"), "issue");
  const auto sent = desk.http.exchanges.size();
  desk.endStore();
  toast.undo();
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), sent);
}

}  // namespace
}  // namespace vellix
