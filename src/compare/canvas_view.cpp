#include "compare/canvas_view.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

PaneView paneView(const PaneInfo& pane, const FileItem& file) {
  PaneView view{.key = file.id + " " + pane.key,
                .img = pane.img.value_or(""),
                .aspect = pane.aspect,
                .label = pane.label,
                .tone = pane.tone};
  if (!view.img.empty()) return view;
  const std::string role = pane.role.value_or("submitted");
  view.missing = role == "submitted" ? "No file of ours for this page"
                                     : "No " + roleLabel(role) + " for this page";
  const Ref* ref = file.ref(role);
  view.missingWhy = ref && ref->note ? *ref->note : "The sync couldn't find one to compare with.";
  return view;
}

PaneToggleView toggleView(const Store& store, std::string key, std::string label,
                          std::string tone) {
  const bool shown = store.shown().contains(key);
  return {.key = std::move(key),
          .label = std::move(label),
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
  return {toggleView(store, "supplier", file.supplier.value_or("Supplier"), "purple"),
          toggleView(store, "submitted", "What we sent", "blue"),
          toggleView(store, "third", roleLabel(thirdRole(page, file, version)), "orange")};
}

}  // namespace

CanvasView canvasView(const Store& store, const FileDetail& detail) {
  const FileItem& file = detail.file;
  const Int count = file.pages ? static_cast<Int>(file.pages->size()) : 0;
  const Int index = pageIndex(store, file);
  const Int version = versionOf(detail);
  CanvasView view;
  // Without a page the bar still stands, with the roles that a page would have.
  static const Page kNoPage;
  const Page* page = pageAt(file, index);
  view.toggles = togglesOf(store, page ? *page : kNoPage, file, version);
  if (page) {
    for (const auto& pane : panesOf(*page, file, version, store.shown())) {
      view.panes.push_back(paneView(pane, file));
    }
    view.bar.place =
        "p" + page->name() + " · " + std::to_string(index + 1) + " of " + std::to_string(count);
  } else {
    view.bar.empty = "No pages in this file.";
  }
  view.bar.first = index <= 0;
  view.bar.last = index >= count - 1;
  view.bar.zoom = store.zoom();
  view.bar.percent = std::to_string(std::lround(store.zoom() * 100)) + "%";
  view.bar.canZoomOut = store.zoom() > 1;
  view.bar.canZoomIn = store.zoom() < 4;
  view.bar.scrolls = store.zoom() > 1.01;
  return view;
}

bool notesFloat(double width) { return width < 900; }

NotesPanelView notesPanel(const Store& store, double width) {
  NotesPanelView view;
  view.floats = store.notesFloat;
  view.open = store.notesFloat ? store.notesDrawer() : store.prefs.showNotes();
  view.width = view.floats ? std::min(width - 40, 320.0) : width < 1100 ? 290 : 330;
  view.help = view.open ? "Hide the notes panel (⌥⌘I)" : "Show the notes panel (⌥⌘I)";
  return view;
}

}  // namespace vellix
