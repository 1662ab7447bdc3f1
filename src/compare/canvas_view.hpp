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
  std::string missing;  // what is not there
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
  double zoom = 1;
  std::string percent;
  bool canZoomIn = true;
  bool canZoomOut = false;
  bool scrolls = false;
  bool operator==(const CanvasBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CanvasBarView, (),
                      (empty, place, first, last, zoom, percent, canZoomIn, canZoomOut, scrolls))

// The notes panel beside the page: known before the ticket's detail is here.
struct NotesPanelView {
  bool open = true;
  bool floats = false;  // over the page, where there is no room beside it
  double width = 0;     // logical pixels
  std::string help;     // of its button
  bool operator==(const NotesPanelView&) const = default;
};
BOOST_DESCRIBE_STRUCT(NotesPanelView, (), (open, floats, width, help))

struct CanvasView {
  CanvasBarView bar;
  std::vector<PaneView> panes;
  std::vector<PaneToggleView> toggles;
};

CanvasView canvasView(const Store& store, const FileDetail& detail);

// `width` is that of the view which the panel stands in, in logical pixels.
bool notesFloat(double width);
NotesPanelView notesPanel(const Store& store, double width);

}  // namespace vellix
