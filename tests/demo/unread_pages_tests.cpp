#include "unread_pages.hpp"

#include <gtest/gtest.h>

#include "set_pages.hpp"

namespace vellix::demo {
namespace {

using Lines = std::vector<std::string>;

// Pages that all have a word.
class UnreadPages : public testing::Test {
 protected:
  Lines told(const std::vector<Finding>& findings) {
    Lines lines;
    for (const Finding& each : findings) {
      EXPECT_EQ(each.kind, "words");
      EXPECT_EQ(each.state, "open");
      lines.push_back(std::to_string(each.page) + " " + each.title + ": " +
                      each.detail.value_or(""));
    }
    return lines;
  }

  std::vector<PdfPage> proof_ = std::vector<PdfPage>(400, setPage({"word"}));
  std::vector<PdfPage> ours_ = proof_;
  Partners partners_ = asTheyStand(400, 400);
  const Pair pair_{proof_, ours_, partners_, "submitted", "our file"};
};

TEST_F(UnreadPages, AreToldOnceWhereTheyFollowEachOther) {
  EXPECT_EQ(told(unreadFindings(pair_, {}, Unread::words)), Lines{});
  EXPECT_EQ(told(unreadFindings(pair_, {3, 5, 6}, Unread::words)),
            (Lines{"3 The page could not be read: Its words could not be compared with our file. "
                   "Compare the page by eye.",
                   "5 2 pages could not be read: This page and the 1 behind it: their words could "
                   "not be compared with our file. Compare the pages by eye."}));
  std::set<std::size_t> all;
  for (std::size_t i = 0; i < 400; ++i) all.insert(i);
  EXPECT_EQ(told(unreadFindings(pair_, all, Unread::looks)),
            Lines{"0 400 pages could not be read: This page and the 399 behind it: how they look "
                  "could not be compared with our file. Compare the pages by eye."});
}

TEST_F(UnreadPages, ThatAreSilentSaySo) {
  EXPECT_EQ(told(silentFindings(pair_, {7})),
            Lines{"7 No live text: The page has no words that could be compared with those of our "
                  "file. How it looks was compared."});
  EXPECT_EQ(told(silentFindings(pair_, {7, 8, 9})),
            Lines{"7 No live text: This page and the 2 behind it have no words that could be "
                  "compared with those of our file. How they look was compared."});
}

TEST_F(UnreadPages, WithTooManyWordsSaySo) {
  proof_[4].moreWords = true;
  ours_[9].moreWords = true;
  ours_[10].moreWords = true;
  EXPECT_TRUE(hasMoreWords(pair_, 9));
  EXPECT_FALSE(hasMoreWords(pair_, 8));
  EXPECT_EQ(told(wordyFindings(pair_)),
            (Lines{"4 Not every word was compared: Only the first 40,000 words of this page were "
                   "compared with our file. Compare the rest by eye.",
                   "9 Not every word was compared: This page and the 1 behind it: only the first "
                   "40,000 words of each were compared with our file. Compare the rest by eye."}));
  partners_[4].reset();
  EXPECT_FALSE(hasMoreWords(pair_, 4));
}

TEST_F(UnreadPages, BehindTooManyWordsSaySo) {
  const auto forget = [](PdfPage& page) {
    page.words.clear();
    page.moreWords = true;
  };
  forget(proof_[399]);
  EXPECT_EQ(told(wordyFindings(pair_)),
            Lines{"399 The words were not compared: This page comes after more words than can be "
                  "compared. Compare its words with those of our file by eye."});
  forget(ours_[398]);
  EXPECT_EQ(told(wordyFindings(pair_)),
            Lines{"398 The words were not compared: This page and the 1 behind it come after more "
                  "words than can be compared. Compare their words with those of our file by "
                  "eye."});
}

}  // namespace
}  // namespace vellix::demo
