// A list whose copies share their records until one is written to.
#include "records/shared_list.hpp"

#include <gtest/gtest.h>

#include "records/records.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

using Files = SharedList<FileItem>;

// Where each record lies: equal places are shared records.
std::vector<const FileItem*> placesOf(const Files& files) {
  std::vector<const FileItem*> places;
  for (const FileItem& file : files) places.push_back(&file);
  return places;
}

TEST(SharedList, SharesItsRecordsWithItsCopies) {
  const Files files{ticketOf("a"), ticketOf("b")};
  Files copy;
  copy = files;
  EXPECT_EQ(placesOf(copy), placesOf(files));
  EXPECT_EQ(copy, files);
}

TEST(SharedList, CopiesWhatIsWrittenToAndNothingElse) {
  const Files files{ticketOf("a"), ticketOf("b"), ticketOf("c")};
  Files copy = files;
  copy[1].title = "Another title";
  EXPECT_FALSE(files[1].title) << "nobody sees another's writing";
  EXPECT_NE(copy, files);
  EXPECT_EQ(placesOf(copy)[0], placesOf(files)[0]);
  EXPECT_EQ(placesOf(copy)[2], placesOf(files)[2]);
}

TEST(SharedList, WritesInPlaceWhereNobodyShares) {
  Files files{ticketOf("a"), ticketOf("b")};
  const auto places = placesOf(files);
  for (FileItem& file : files) file.title = "Another title";
  EXPECT_EQ(placesOf(files), places);
  EXPECT_EQ(files.back().title, "Another title");
}

TEST(SharedList, IsChangedLikeAVector) {
  Files files{ticketOf("a"), ticketOf("b"), ticketOf("c"), ticketOf("d"), ticketOf("e")};
  const Files before = files;
  files.erase(files.begin() + 1, files.begin() + 3);
  files.erase(files.begin());
  EXPECT_EQ(files, (Files{ticketOf("d"), ticketOf("e")}));
  files.pop_back();
  files.push_back(ticketOf("f"));
  files.resize(3);
  EXPECT_EQ(files, (Files{ticketOf("d"), ticketOf("f"), FileItem{}}));
  files.eraseIf([](const FileItem& file) { return file.id == "f"; });
  EXPECT_EQ(files, (Files{ticketOf("d"), FileItem{}}));
  files.clear();
  EXPECT_TRUE(files.empty());
  EXPECT_EQ(files.begin(), files.end());
  EXPECT_EQ(before.size(), 5U);
}

TEST(SharedList, FindsTheFirstOfAnId) {
  Files files{ticketOf("a"), ticketOf("b"), ticketOf("a", "reviewed")};
  EXPECT_EQ(files.find("a")->status, "new");
  EXPECT_EQ(files.placeOf("b"), 1U);
  EXPECT_FALSE(files.find("c"));
  EXPECT_GE(files.placeOf("c"), files.size());
  EXPECT_FALSE(Files{}.find("a"));
  files[1].id = "c";
  EXPECT_FALSE(files.find("b")) << "it is looked up anew";
  EXPECT_EQ(files.placeOf("c"), 1U);
  files.erase(files.begin());
  EXPECT_EQ(files.find("a")->status, "reviewed");
}

TEST(SharedList, FindsEachOfMany) {
  Files files;
  for (int i = 0; i < 1'000; ++i) files.push_back(ticketOf(std::to_string(i)));
  for (std::size_t i = 0; i < files.size(); ++i) EXPECT_EQ(files.placeOf(std::to_string(i)), i);
}

TEST(SharedList, TakesEqualRecordsOfAnother) {
  const Files held{ticketOf("a"), ticketOf("b"), ticketOf("c")};
  Files fresh{ticketOf("c"), ticketOf("new"), ticketOf("b", "reviewed"), ticketOf("a")};
  const Files same = fresh;
  fresh.shareWith(held);
  EXPECT_EQ(fresh, same) << "it stays what it is";
  EXPECT_EQ(&std::as_const(fresh)[0], &held[2]);
  EXPECT_NE(&std::as_const(fresh)[2], &held[1]) << "it is another record";
  EXPECT_EQ(&std::as_const(fresh)[3], &held[0]);
  EXPECT_EQ(fresh.placeOf("b"), 2U);
  Files nothing;
  nothing.shareWith(held);
  EXPECT_TRUE(nothing.empty());
  fresh.shareWith(nothing);
  EXPECT_EQ(fresh, same);
}

}  // namespace
}  // namespace vellix
