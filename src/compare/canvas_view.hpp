// The canvas and its bar, as they are shown.
#pragma once

#include <string>
#include <vector>

#include "compare/canvas.hpp"

namespace vellix {

struct PaneView {
  std::string key;  // of the ticket and the pane: another ticket's panes are others
  std::string img;  // blob key; empty turns the pane into the words below
  double aspect = 0;
  std::string label;
  std::string tone;
  std::string missing;      // what is not there
  std::string missingWhy;
  bool operator==(const PaneView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PaneView, (), (key, img, aspect, label, tone, missing, missingWhy))

struct PaneToggleView {
  std::string key;
  std::string label;
  std::string tone;
  std::string icon;
  std::string help;
  bool shown = false;
  bool operator==(const PaneToggleView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PaneToggleView, (), (key, label, tone, icon, help, shown))

struct CanvasBarView {
  std::string empty;  // said in place of the panes
  std::string place;  // "p{name} · {n} of {count}"
  bool first = true;
  bool last = true;
  std::vector<PaneToggleView> toggles;
  double zoom = 1;
  std::string percent;
  bool canZoomIn = true;
  bool canZoomOut = false;
  bool scrolls = false;
  bool notesOpen = true;
  bool notesFloat = false;
  std::string notesHelp;
  bool operator==(const CanvasBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CanvasBarView, (),
                      (empty, place, first, last, toggles, zoom, percent, canZoomIn,
                       canZoomOut, scrolls, notesOpen, notesFloat, notesHelp))

struct CanvasView {
  CanvasBarView bar;
  std::vector<PaneView> panes;
};

CanvasView canvasView(const Store& store, const FileDetail& detail);

}  // namespace vellix
