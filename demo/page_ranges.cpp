#include "page_ranges.hpp"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

namespace vellix::demo {
namespace {

constexpr std::size_t kPagesAtOnce = 16;
// So many that bring their reader down, and the rest of the piece is given up too.
constexpr int kMostFailures = 3;

// Calls `read` for what is left of a range, over each page that it does not get over.
template <class Read, class Take>
void overAll(std::size_t from, std::size_t to, Read read, Take take) {
  for (int failures = 0; from < to && failures < kMostFailures;) {
    auto some = read(static_cast<int>(from), static_cast<int>(to));
    for (auto& one : some) {
      if (from < to) take(from++, std::move(one));
    }
    if (from < to) {
      ++failures;
      ++from;
    }
  }
}

}  // namespace

void inPieces(std::size_t count, std::size_t piece, const std::stop_token& stopped,
              const std::function<void(std::size_t from, std::size_t to)>& work) {
  std::atomic<std::size_t> next = 0;
  const auto lane = [&] {
    while (!stopped.stop_requested()) {
      const std::size_t from = next.fetch_add(piece);
      if (from >= count) return;
      work(from, std::min(count, from + piece));
    }
  };
  const std::jthread other(lane);
  lane();
}

PagesRead pagesOf(const PdfFile& pdf, const PdfReading& facts, const std::stop_token& stopped,
                  std::size_t mostWords) {
  PagesRead all{facts.pages, {}};
  std::mutex mutex;
  std::size_t words = 0;
  std::size_t end = all.pages.size();  // of the pages that keep theirs
  for (std::size_t i = 0; i < all.pages.size(); ++i) all.unread.insert(i);
  inPieces(all.pages.size(), kPagesAtOnce, stopped, [&](std::size_t from, std::size_t to) {
    overAll(
        from, to,
        [&](int first, int last) { return pdf.pages(first, last, {Urgency::checked, stopped}); },
        [&](std::size_t page, PdfPage read) {
          const std::lock_guard lock(mutex);
          if (page >= end) forgetWords(read);
          words += read.words.size();
          all.pages[page] = std::move(read);
          all.unread.erase(page);
          // The same ones at the end, in whatever order they come.
          while (words > mostWords) {
            words -= all.pages[--end].words.size();
            forgetWords(all.pages[end]);
          }
        });
  });
  return all;
}

std::map<std::size_t, PdfSight> sightsOf(const PdfFile& pdf, const std::set<std::size_t>& pages,
                                         const std::stop_token& stopped) {
  std::map<std::size_t, PdfSight> sights;
  for (auto from = pages.begin(); from != pages.end();) {
    auto last = from;
    while (std::next(last) != pages.end() && *std::next(last) == *last + 1) ++last;
    overAll(
        *from, *last + 1,
        [&](int first, int end) { return pdf.sights(first, end, {Urgency::checked, stopped}); },
        [&](std::size_t page, PdfSight sight) {
          if (!sight.picture.isNull()) sights[page] = std::move(sight);
        });
    from = std::next(last);
  }
  return sights;
}

}  // namespace vellix::demo
