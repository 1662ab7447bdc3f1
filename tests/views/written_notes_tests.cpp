// What somebody writes ends with their session, however the next one comes about.
#include "store/sign_in_test.hpp"
#include "views/notes_test.hpp"

namespace vellix {
namespace {

struct Change {
  const char* name;
  bool signsOut;  // first
};
BOOST_DESCRIBE_STRUCT(Change, (), (name, signsOut))

class WrittenNotes : public NotesViewTest, public testing::WithParamInterface<Change> {
 protected:
  WrittenNotes() {
    serveTheDay();
    FileDetail detail = withNotes({noteBy("n1", "renny")});
    serveDetail(detail, "\"with a note\"");
    load(detail.file, true);
    routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
    routes.set("POST api/logout", answerOf(200, "{}"));
    showMain({1'500, 940});
    calm();
  }
  void nextSession() {
    if (GetParam().signsOut) {
      store().signOut(false);
      settle();
    }
    store().open(kCallback);
    settle();
    ASSERT_EQ(desk.api.token(), "fresh");
    ASSERT_TRUE(comes([this] { return field(kField) != nullptr; }));
  }
};

TEST_P(WrittenNotes, EndInTheComposer) {
  focus(field(kField));
  type("For the printer");
  ASSERT_EQ(textOf(field(kField)), "For the printer");
  nextSession();
  EXPECT_EQ(textOf(field(kField)), "");
  focus(field(kField));
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(textOf(field(kField)), "") << "not even by Undo";
}

TEST_P(WrittenNotes, EndInAnEditor) {
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
  ASSERT_TRUE(comes([this] { return field("Note") != nullptr; }));
  nextSession();
  EXPECT_FALSE(field("Note"));
}

TEST_P(WrittenNotes, EndAtAPlaceOfThePage) {
  store().draft.set(DraftNote{"t1", 0, "supplier", 0.5, 0.5, 0, 0, std::nullopt});
  ASSERT_TRUE(comes([this] { return field(kCardField) != nullptr; }));
  focus(field(kCardField));
  type("Here");
  nextSession();
  EXPECT_FALSE(store().draft());
  store().draft.set(DraftNote{"t1", 0, "supplier", 0.5, 0.5, 0, 0, std::nullopt});
  ASSERT_TRUE(comes([this] { return field(kCardField) != nullptr; }));
  EXPECT_EQ(textOf(field(kCardField)), "");
}

INSTANTIATE_TEST_SUITE_P(With, WrittenNotes,
                         testing::Values(Change{"ASignOut", true}, Change{"ALinkOverIt", false}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
