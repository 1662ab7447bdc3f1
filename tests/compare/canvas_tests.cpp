// The page on show, what it is compared with, the room for it, and the panes that are shown.
#include "compare/canvas.hpp"

#include <limits>

#include "records/finding_kinds.hpp"
#include "records/finding_words.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Keys = std::set<std::string>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Index {
  const char* name;
  std::optional<Int> stored;
  std::optional<Int> pages;
  Int index;
  bool reaches;
};
BOOST_DESCRIBE_STRUCT(Index, (), (name, stored, pages, index, reaches))

class PageIndexes : public StoreTest, public testing::WithParamInterface<Index> {};

TEST_P(PageIndexes, AreHeldToThePagesThereAre) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1");
  if (each.pages) file.pages = pagesOf(*each.pages);
  if (each.stored) store().page.set({{"t1", *each.stored}, {"t2", 1}});
  const auto stored = store().page();
  EXPECT_EQ(pageIndex(store(), file), each.index);
  EXPECT_EQ(pageAt(file, each.index) != nullptr, each.reaches);
  EXPECT_EQ(store().page(), stored) << "what is stored stays until it is stepped";
}

INSTANTIATE_TEST_SUITE_P(
    All, PageIndexes,
    testing::Values(Index{"NothingStored", std::nullopt, 3, 0, true},
                    Index{"Inside", 2, 3, 2, true}, Index{"JustBeyond", 3, 3, 2, true},
                    Index{"FarBeyond", std::numeric_limits<Int>::max(), 3, 2, true},
                    Index{"OnePage", 5, 1, 0, true}, Index{"NoPages", 2, 0, 0, false},
                    Index{"PagesUntold", 2, std::nullopt, 0, false},
                    Index{"BelowTheFirst", -1, 3, -1, false}),
    [](const auto& each) { return each.param.name; });

TEST(PageAt, GivesThePageAtTheIndexWhateverItCallsItself) {
  FileItem file = ticketOf("t1");
  file.pages = {pageOf(7), pageOf(3)};
  EXPECT_EQ(pageAt(file, 1)->i, 3);
  EXPECT_EQ(pageAt(file, 2), nullptr);
}

TEST(RoleLabel, IsOneOfFour) {
  EXPECT_EQ(roleLabel("submitted"), "What we sent");
  EXPECT_EQ(roleLabel("previous"), "Last version");
  EXPECT_EQ(roleLabel("fbc"), "FBC");
  EXPECT_EQ(roleLabel("latest"), "Last print");
  EXPECT_EQ(roleLabel("anything"), "Last print");
}

struct Third {
  const char* name;
  Int version;
  std::optional<std::string> track;
  Keys onPage;    // roles that the page has a reference of
  Keys onTicket;  // roles that the ticket has a reference of
  const char* role;
};
BOOST_DESCRIBE_STRUCT(Third, (), (name, version, track, onPage, onTicket, role))

class ThirdRoles : public testing::TestWithParam<Third> {};

TEST_P(ThirdRoles, AreChosenInOrder) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1");
  file.track = each.track;
  file.refs.emplace();
  for (const auto& role : each.onTicket) file.refs->push_back({.role = role});
  Page page;
  page.refs.emplace();
  for (const auto& role : each.onPage) page.refs->emplace(role, RefPage{});
  EXPECT_EQ(thirdRole(page, file, each.version), each.role);
}

INSTANTIATE_TEST_SUITE_P(
    All, ThirdRoles,
    testing::Values(
        Third{"ARevisionHasThePrevious", 2, {}, {"fbc", "latest"}, {"fbc"}, "previous"},
        Third{"ARevisedReprintToo", 7, "reprint", {"latest"}, {"latest"}, "previous"},
        Third{"ANewTitleOnItsPage", 1, "new_title", {"fbc", "latest"}, {}, "fbc"},
        Third{"WithoutATrack", 1, {}, {"fbc", "latest"}, {}, "fbc"},
        Third{"OfAnyOtherTrack", 1, "atlas", {"fbc", "latest"}, {}, "fbc"},
        Third{"AReprintOnItsPage", 1, "reprint", {"fbc", "latest"}, {}, "latest"},
        Third{"OfTheTicketAlone", 1, "new_title", {"latest"}, {"fbc"}, "fbc"},
        Third{"AReprintOfTheTicketAlone", 1, "reprint", {"fbc"}, {"latest"}, "latest"},
        Third{"AReprintWithOnlyFbc", 1, "reprint", {"fbc"}, {"fbc"}, "fbc"},
        Third{"ANewTitleWithOnlyLatest", 1, "new_title", {"latest"}, {"latest"}, "latest"},
        Third{"NeitherForANewTitle", 1, "new_title", {"submitted"}, {"submitted"}, "fbc"},
        Third{"NeitherForAReprint", 1, "reprint", {}, {}, "latest"},
        Third{"VersionZero", 0, "reprint", {"latest"}, {}, "latest"}),
    [](const auto& each) { return each.param.name; });

TEST(ThirdRole, StandsWithoutAnyReferencesTold) {
  EXPECT_EQ(thirdRole(Page{}, ticketOf("t1"), 1), "fbc");
}

TEST(StandsAlone, HoldsForTheFiveKindsWithoutAReference) {
  Finding finding;
  for (const char* kind : {"hidden", "barcode", "spots", "pass", "missing_page"}) {
    finding.kind = kind;
    EXPECT_TRUE(standsAlone(finding)) << kind;
  }
  for (const char* kind :
       {"words", "expected", "breaks", "fonts", "size", "picture", "extra_page", "", "Hidden"}) {
    finding.kind = kind;
    EXPECT_FALSE(standsAlone(finding)) << kind;
  }
}

}  // namespace
}  // namespace vellix
