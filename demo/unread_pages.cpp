#include "unread_pages.hpp"

#include <algorithm>
#include <iterator>

namespace vellix::demo {
namespace {

// "This page and the 3 behind it".
std::string thesePages(std::size_t count) {
  return "This page and the " + std::to_string(count - 1) + " behind it";
}

// Calls `tell` for the first page of each run and for how many are in it.
template <class Tell>
std::vector<Finding> byRuns(const Pair& pair, const std::set<std::size_t>& pages, Tell tell) {
  std::vector<Finding> findings;
  for (auto from = pages.begin(); from != pages.end();) {
    auto to = std::next(from);
    std::size_t count = 1;
    while (to != pages.end() && *to == *from + count) ++to, ++count;
    Finding finding = findingOn(*from, pair, "words", "medium");
    tell(finding, count);
    findings.push_back(std::move(finding));
    from = to;
  }
  return findings;
}

// "40,000".
std::string grouped(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

}  // namespace

std::vector<Finding> unreadFindings(const Pair& pair, const std::set<std::size_t>& pages,
                                    Unread what) {
  return byRuns(pair, pages, [&](Finding& finding, std::size_t count) {
    const bool words = what == Unread::words;
    if (count == 1) {
      finding.title = "The page could not be read";
      finding.detail = std::string(words ? "Its words" : "How it looks") +
                       " could not be compared with " + pair.called + ". Compare the page by eye.";
    } else {
      finding.title = std::to_string(count) + " pages could not be read";
      finding.detail = thesePages(count) + ": " + (words ? "their words" : "how they look") +
                       " could not be compared with " + pair.called + ". Compare the pages by eye.";
    }
  });
}

std::vector<Finding> silentFindings(const Pair& pair, const std::set<std::size_t>& pages) {
  return byRuns(pair, pages, [&](Finding& finding, std::size_t count) {
    finding.title = "No live text";
    finding.detail =
        (count == 1 ? "The page has" : thesePages(count) + " have") +
        std::string(" no words that could be compared with those of ") + pair.called +
        (count == 1 ? ". How it looks was compared." : ". How they look was compared.");
  });
}

bool hasMoreWords(const Pair& pair, std::size_t page) {
  const auto& partner = pair.partners[page];
  return partner && (pair.proof[page].moreWords || pair.reference[partner->page].moreWords);
}

std::vector<Finding> wordyFindings(const Pair& pair) {
  std::set<std::size_t> some;  // of which only the first words were compared
  std::set<std::size_t> none;
  for (std::size_t i = 0; i < pair.partners.size(); ++i) {
    if (!hasMoreWords(pair, i)) continue;
    const auto left = [](const PdfPage& page) { return page.moreWords && page.words.empty(); };
    const bool all = left(pair.proof[i]) || left(pair.reference[pair.partners[i]->page]);
    (all ? none : some).insert(i);
  }
  const std::string first = "the first " + grouped(kMostWordsOfAPage) + " words";
  std::vector<Finding> findings = byRuns(pair, some, [&](Finding& finding, std::size_t count) {
    finding.title = "Not every word was compared";
    finding.detail =
        (count == 1 ? "Only " + first + " of this page were compared with "
                    : thesePages(count) + ": only " + first + " of each were compared with ") +
        pair.called + ". Compare the rest by eye.";
  });
  std::ranges::move(byRuns(pair, none,
                           [&](Finding& finding, std::size_t count) {
                             finding.title = "The words were not compared";
                             finding.detail =
                                 (count == 1 ? "This page comes" : thesePages(count) + " come") +
                                 std::string(" after more words than can be compared. Compare ") +
                                 (count == 1 ? "its" : "their") + " words with those of " +
                                 pair.called + " by eye.";
                           }),
                    std::back_inserter(findings));
  return findings;
}

}  // namespace vellix::demo
