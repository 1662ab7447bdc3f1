// Many pages of one PDF, read a few at a time and by two readers at once.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <stop_token>
#include <vector>

#include "pdf_file.hpp"

namespace vellix::demo {

// Calls `work` for pieces of 0 to `count`, on two threads, until all are done or it is stopped.
void inPieces(std::size_t count, std::size_t piece, const std::stop_token& stopped,
              const std::function<void(std::size_t from, std::size_t to)>& work);

struct PagesRead {
  std::vector<PdfPage> pages;    // as many as the facts have
  std::set<std::size_t> unread;  // of which only the facts are known
};
// A page that its reader does not get over costs no other page its words. From the page on with
// which there are too many words in all, none are kept.
PagesRead pagesOf(const PdfFile& pdf, const PdfReading& facts, const std::stop_token& stopped,
                  std::size_t mostWords = kMostWords);

// Those of these pages that could be drawn.
std::map<std::size_t, PdfSight> sightsOf(const PdfFile& pdf, const std::set<std::size_t>& pages,
                                         const std::stop_token& stopped);

}  // namespace vellix::demo
