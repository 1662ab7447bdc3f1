// What fills the window.
#include "shell/root_view.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

class RootViews : public StoreTest {
 protected:
  void show(std::vector<FileItem> files) { store().board.set(boardOf(std::move(files))); }
  RootViewValue view() { return rootView(store()); }
};

struct Content {
  const char* name;
  std::optional<std::vector<FileItem>> files;  // none while there is no board
  Ids selection;
  const char* content;
  const char* headline;
  const char* line;
};
BOOST_DESCRIBE_STRUCT(Content, (), (name, files, selection, content, headline, line))

class Contents : public RootViews, public testing::WithParamInterface<Content> {};

TEST_P(Contents, FollowTheFirstRuleThatHolds) {
  const auto& each = GetParam();
  if (each.files) show(*each.files);
  store().selection.set(each.selection);
  EXPECT_EQ(view().content, each.content);
  EXPECT_EQ(view().headline, each.headline);
  EXPECT_EQ(view().line, each.line);
}

std::vector<FileItem> two() { return {ticketOf("a"), ticketOf("b")}; }
constexpr const char* kPick = "Pick a file.";
constexpr const char* kPickLine = "Pick one on the left to compare it with our files.";
constexpr const char* kNothing = "Nothing to review yet.";
constexpr const char* kNothingLine =
    "Press Sync. Claude on the Mac mini checks supplier mail for new proofs.";
constexpr const char* kLoadingLine = "Loading the board…";

INSTANTIATE_TEST_SUITE_P(
    All, Contents,
    testing::Values(Content{"OneTicket", two(), {"b"}, "file", "", ""},
                    Content{"NoneSelected", two(), {}, "empty", kPick, kPickLine},
                    Content{"TheSelectedIsGone", two(), {"z"}, "empty", kPick, kPickLine},
                    Content{"NoTickets", {{}}, {}, "empty", kNothing, kNothingLine},
                    Content{"NoBoard", {}, {}, "loading", "", kLoadingLine},
                    Content{"SelectedAheadOfTheBoard", {}, {"a"}, "loading", "", kLoadingLine}),
    [](const auto& each) { return each.param.name; });

TEST_F(RootViews, TellWhichTicketIsOnShow) {
  show(two());
  store().selection.set({"b"});
  EXPECT_EQ(view().file, "b");
  store().selection.set({"a", "b"});
  EXPECT_EQ(view().file, "");
}

TEST_F(RootViews, KeepSeveralSelectedAheadOfEverythingElse) {
  store().selection.set({"a", "b"});
  EXPECT_EQ(view().content, "multi");
  show(two());
  EXPECT_EQ(view().content, "multi");
  EXPECT_EQ(view().file, "");
}

TEST_F(RootViews, ShowAProfileAheadOfEverything) {
  store().profile.set("renny@tessarine.example");
  EXPECT_EQ(view().content, "profile") << "before the board, too";
  show(two());
  for (const Ids& selected : {Ids{}, Ids{"b"}, Ids{"a", "b"}}) {
    store().selection.set(selected);
    EXPECT_EQ(view().content, "profile");
    EXPECT_EQ(view().person, "renny@tessarine.example");
    EXPECT_EQ(view().file, selected == Ids{"b"} ? "b" : "") << "waits behind it";
  }
  store().profile.set(std::nullopt);
  EXPECT_EQ(view().content, "multi");
  EXPECT_EQ(view().person, "");
}

TEST_F(RootViews, ShowTheBannerOnlyOverABoard) {
  EXPECT_FALSE(view().offline);
  store().problem.set(kOfflineText);
  EXPECT_FALSE(view().offline);
  EXPECT_EQ(view().content, "loading");
  show({});
  EXPECT_TRUE(view().offline);
  EXPECT_EQ(view().problem, kOfflineText);
  store().problem.set(std::nullopt);
  EXPECT_FALSE(view().offline);
  EXPECT_EQ(view().problem, "");
}

TEST_F(RootViews, TellWhetherSomebodyIsSignedIn) {
  EXPECT_TRUE(view().signedIn);
  store().signOut(true);
  EXPECT_FALSE(view().signedIn);
}

struct Width {
  double window;
  double sidebar;
};

TEST(SidebarWidth, HasThreeSteps) {
  for (const auto& each :
       {Width{0, 236}, Width{760, 236}, Width{979, 236}, Width{979.9, 236}, Width{980, 260},
        Width{1'279, 260}, Width{1'280, 284}, Width{1'500, 284}}) {
    EXPECT_EQ(sidebarWidth(each.window), each.sidebar) << each.window;
  }
}

}  // namespace
}  // namespace vellix
