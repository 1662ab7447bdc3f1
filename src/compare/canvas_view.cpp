#include "compare/canvas_view.hpp"

#include <algorithm>
#include <cmath>

#include "compare/canvas.hpp"
#include "records/finding_words.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

PaneView paneView(const PaneInfo& pane, const FileItem& file) {
  PaneView view{.key = file.id + " " + pane.key,
                .img = pane.img.value_or(""),
                .thumb = pane.thumb.value_or(""),
                .aspect = pane.aspect,
                .label = pane.label,
                .tone = pane.tone,
                .side = sideOf(pane.role)};
  if (!view.img.empty()) return view;
  const std::string role = pane.role.value_or("submitted");
  view.missing = role == "submitted" ? "No file of ours for this page"
                                     : "No " + roleLabel(role) + " for this page";
  const Ref* ref = file.ref(role);
  view.missingWhy =
      wordsOr(ref ? ref->note : std::nullopt, "The sync couldn't find one to compare with.");
  return view;
}

PaneToggleView toggleView(const Store& store, std::string key, std::string label,
                          std::string tone) {
  const bool shown = store.shown().contains(key);
  return {.key = std::move(key),
          .label = label,
          .widest = label,
          .tone = std::move(tone),
          .icon = shown ? "checkmark.circle.fill" : "circle",
          .help = shown ? "Hide this page" : "Show this page",
          .shown = shown};
}

std::vector<PaneToggleView> togglesOf(const Store& store, const Page& page, const FileItem& file,
                                      Int version) {
  if (version >= 2) {
    return {toggleView(store, "supplier", "v" + std::to_string(version), "purple"),
            toggleView(store, "third", "v" + std::to_string(version - 1), "orange")};
  }
  const auto third = [&](const Page& each) { return roleLabel(thirdRole(each, file, version)); };
  std::vector toggles{toggleView(store, "supplier", supplierOf(file), "purple"),
                      toggleView(store, "submitted", roleLabel("submitted"), "blue"),
                      toggleView(store, "third", third(page), "orange")};
  // Of all pages that there can be, this one brings the widest name.
  static const Page kOnlyLatest{.refs = {{{"latest", RefPage{}}}}};
  toggles.back().widest = third(kOnlyLatest);
  return toggles;
}

// Side by side all panes stand on the stage; overlaid the first, under the second; else they take
// turns.
std::vector<PaneView> stagedPanes(const Store& store, const std::vector<PaneInfo>& built,
                                  const FileItem& file, const CanvasState& state) {
  std::vector<PaneView> panes;
  panes.reserve(built.size());
  for (const auto& pane : built) panes.push_back(paneView(pane, file));
  if (panes.empty()) return panes;
  if (store.mode() == CompareMode::overlay) {
    panes.resize(1);
    if (built.size() > 1) panes.front().under = built[1].img.value_or("");
    panes.front().difference = state.difference && !panes.front().under.empty();
  } else if (store.mode() == CompareMode::blink) {
    const auto turn = static_cast<std::size_t>(state.blink) % panes.size();
    for (std::size_t i = 0; i < panes.size(); ++i) panes[i].onStage = i == turn;
  }
  return panes;
}

std::string placeOf(const Page& page, Int index, Int count) {
  return "p" + page.name() + " · " + std::to_string(index + 1) + " of " + std::to_string(count);
}

// Known before the pages' names are. Short books have the room of others.
std::string widestPlace(Int count) {
  const Int last = std::max<Int>(count, 10);
  return placeOf(Page{.i = last - 1}, last - 1, last);
}

CanvasBarView barView(const Store& store, const FileItem& file, Int index,
                      const CanvasState& state) {
  const Int count = file.pages ? static_cast<Int>(file.pages->size()) : 0;
  const Page* page = pageAt(file, index);
  CanvasBarView bar{.mode = keyOf(store.mode()),
                    .overlay = store.mode() == CompareMode::overlay,
                    .opacity = state.opacity,
                    .difference = state.difference,
                    .draws = store.prefs.drawToComment(),
                    .page = index,
                    .widest = widestPlace(count)};
  if (page) {
    bar.place = placeOf(*page, index, count);
  } else {
    bar.empty = "No pages in this file.";
  }
  bar.first = index <= 0;
  bar.last = index >= count - 1;
  bar.zoom = store.zoom();
  bar.percent = std::to_string(std::lround(store.zoom() * 100)) + "%";
  bar.canZoomOut = store.zoom() > 1;
  bar.canZoomIn = store.zoom() < 4;
  return bar;
}

// Several panes may show it; the card stands on the one where it was drawn.
Int draftPaneOf(const std::vector<PaneView>& panes, const std::string& drawnOn) {
  const auto drawn = std::ranges::find_if(
      panes, [&](const PaneView& pane) { return pane.draft.here && pane.key == drawnOn; });
  const auto found =
      drawn != panes.end()
          ? drawn
          : std::ranges::find_if(panes, [](const PaneView& pane) { return pane.draft.here; });
  return found == panes.end() ? -1 : static_cast<Int>(found - panes.begin());
}

}  // namespace

std::vector<ModeView> compareModes() {
  return {{"side", "Side by side"}, {"overlay", "Overlay"}, {"blink", "Blink"}};
}

std::string keyOf(CompareMode mode) {
  return mode == CompareMode::overlay ? "overlay" : mode == CompareMode::blink ? "blink" : "side";
}

std::optional<CompareMode> modeOf(const std::string& key) {
  for (const auto mode : {CompareMode::side, CompareMode::overlay, CompareMode::blink}) {
    if (keyOf(mode) == key) return mode;
  }
  return std::nullopt;
}

CanvasView canvasView(const Store& store, const FileDetail& detail, const CanvasState& state) {
  const FileItem& file = detail.file;
  const Int index = pageIndex(store, file);
  const Int version = detail.versionNumber();
  CanvasView view{.bar = barView(store, file, index, state)};
  // Without a page the bar still stands, with the roles that a page would have.
  static const Page kNoPage;
  const Page* page = pageAt(file, index);
  view.toggles = togglesOf(store, page ? *page : kNoPage, file, version);
  if (!page) return view;
  const auto built = panesOf(*page, file, version, store.shown());
  const auto roles = rolesOf(built);
  view.panes = stagedPanes(store, built, file, state);
  for (std::size_t i = 0; i < view.panes.size(); ++i) {
    auto marks = marksOf(store, detail, *page, index, built[i].role, roles);
    view.panes[i].boxes = std::move(marks.boxes);
    view.panes[i].notes = std::move(marks.notes);
    view.bar.drafting |= marks.draft.here;
    view.panes[i].draft = std::move(marks.draft);
  }
  view.draftPane = draftPaneOf(view.panes, state.drawnOn);
  view.loupe = loupe(store, detail, *page, index, roles);
  return view;
}

CanvasView waitingCanvas(const Store& store, const FileItem& file) {
  static const Page kNoPage;
  const Int index = pageIndex(store, file);
  CanvasView view{.bar = barView(store, file, index, {})};
  const Page* page = pageAt(file, index);
  const Int count = file.page_count.value_or(0);
  if (!page && count > 0) {
    // At which page it opens for the first time, the detail alone can tell.
    if (const auto open = store.page().find(file.id); open != store.page().end()) {
      const Int at = std::clamp<Int>(open->second, 0, count - 1);
      view.bar.place = placeOf(Page{.i = at}, at, count);
    }
    view.bar.widest = widestPlace(count);
  }
  view.bar.empty.clear();
  view.bar.first = view.bar.last = true;
  view.toggles = togglesOf(store, page ? *page : kNoPage, file, file.versionNumber());
  return view;
}

bool takesTurns(const Store& store) { return store.mode() == CompareMode::blink; }

}  // namespace vellix
