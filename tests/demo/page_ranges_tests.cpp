// Many pages read at once, and how many of their words are kept.
#include "page_ranges.hpp"

#include <gtest/gtest.h>

#include "written_pdf.hpp"

namespace vellix::demo {
namespace {

using demo_tests::WrittenPage;

// As many words each as is told.
std::shared_ptr<const PdfFile> saying(const std::vector<int>& counts) {
  std::vector<WrittenPage> pages;
  for (const int count : counts) {
    WrittenPage page;
    for (int i = 0; i < count; ++i) {
      page.lines.push_back({.text = "word" + std::to_string(i), .y = 700.0 - 10 * i, .size = 8});
    }
    pages.push_back(page);
  }
  return PdfFile::of(demo_tests::writtenPdf(pages));
}

TEST(PageRanges, KeepTheWordsOfTheFirstPages) {
  std::vector<int> counts(70, 3);
  counts[20] = 30;
  const auto pdf = saying(counts);
  const PdfReading facts = pdf->facts();
  const PagesRead all = pagesOf(*pdf, facts, {}, 60 + 30 + 9 + 2);
  ASSERT_EQ(all.pages.size(), 70);
  EXPECT_TRUE(all.unread.empty());
  for (std::size_t i = 0; i < 70; ++i) {
    const std::size_t kept = i < 24 ? static_cast<std::size_t>(counts[i]) : 0;
    EXPECT_EQ(all.pages[i].words.size(), kept) << i;
    EXPECT_EQ(all.pages[i].moreWords, kept == 0) << i;
    EXPECT_EQ(all.pages[i].width, 612) << i;
  }
}

TEST(PageRanges, KeepAllWordsWhereThereAreNotTooMany) {
  const auto pdf = saying({2, 0, 3});
  const PagesRead all = pagesOf(*pdf, pdf->facts(), {}, 5);
  EXPECT_EQ(all.pages[2].words.size(), 3);
  for (const PdfPage& page : all.pages) EXPECT_FALSE(page.moreWords);
  const PagesRead some = pagesOf(*pdf, pdf->facts(), {}, 1);
  EXPECT_TRUE(some.pages[0].moreWords);
  EXPECT_TRUE(some.pages[0].words.empty());
  EXPECT_FALSE(some.pages[1].moreWords) << "it never had any";
}

}  // namespace
}  // namespace vellix::demo
