#include "ticket/page_strip.hpp"
#include "store/open_page.hpp"

#include <map>

namespace vellix {
namespace {

constexpr double kLeastAspect = 0.3;
constexpr double kLeastWidth = 860;

struct PageTally {
  Int waiting = 0;
  Int issues = 0;
  Int notes = 0;
};

std::map<Int, PageTally> talliesOf(const FileDetail& detail) {
  std::map<Int, PageTally> pages;
  for (const Finding& finding : detail.findings) {
    if (finding.kind == "expected" || finding.kind == "pass") continue;
    if (finding.state == "open" && finding.severity != "low") ++pages[finding.page].waiting;
    if (finding.state == "issue") ++pages[finding.page].issues;
  }
  for (const Note& note : detail.comments) {
    if (note.page && !note.isResolved()) ++pages[*note.page].notes;
  }
  return pages;
}

// In three characters, which is what a cell has room for.
std::string figure(Int count) {
  if (count <= 0) return "";
  return count > 999 ? "1k+" : std::to_string(count);
}

std::string spokenOf(const PageTally& tally) {
  std::string spoken;
  const auto add = [&](Int count, const std::string& one, const std::string& more) {
    if (count <= 0) return;
    spoken += (spoken.empty() ? "" : ", ") + std::to_string(count) + (count == 1 ? one : more);
  };
  add(tally.waiting, " to look at", " to look at");
  add(tally.issues, " real issue", " real issues");
  add(tally.notes, " note", " notes");
  return spoken;
}

// What is no number is taken for as tall as it gets.
double heightOf(const Page& page) {
  const double aspect = page.aspect();
  return kStripThumbWidth / (aspect > kLeastAspect ? aspect : kLeastAspect);
}

std::string pictureOf(const Page& page) {
  if (page.thumb && !page.thumb->empty()) return *page.thumb;
  return page.img.value_or("");
}

}  // namespace

std::vector<PageCellView> pageStrip(const Store& store, const FileDetail& detail) {
  std::vector<PageCellView> cells;
  const FileItem& file = detail.file;
  if (!file.pages) return cells;
  const Int open = pageIndex(store, file);
  const auto tallies = talliesOf(detail);
  static const PageTally kNothing;
  cells.reserve(file.pages->size());
  for (const Page& page : *file.pages) {
    const auto index = static_cast<Int>(cells.size());
    const auto found = tallies.find(index);
    const PageTally& tally = found == tallies.end() ? kNothing : found->second;
    cells.push_back({.key = file.id + " " + std::to_string(index),
                     .name = page.name(),
                     .img = pictureOf(page),
                     .tall = heightOf(page),
                     .open = index == open,
                     .waiting = figure(tally.waiting),
                     .issues = figure(tally.issues),
                     .notes = figure(tally.notes),
                     .spoken = spokenOf(tally)});
  }
  return cells;
}

bool showsPageStrip(const Store& store, const FileDetail* detail, double width) {
  return detail && store.prefs.showPageStrip() && roomForPageStrip(detail->file, detail, width);
}

bool roomForPageStrip(const FileItem& file, const FileDetail* detail, double width) {
  if (!(width >= kLeastWidth)) return false;
  const auto& pages = detail ? detail->file.pages : file.pages;
  if (detail || pages) return pages && pages->size() > 1;
  return file.page_count.value_or(0) > 1;
}

}  // namespace vellix
