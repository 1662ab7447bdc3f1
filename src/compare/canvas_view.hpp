// The canvas and its bar, as they are shown.
#pragma once

#include <string>
#include <vector>

#include "compare/loupe.hpp"
#include "compare/page_marks.hpp"
#include "compare/stage.hpp"

namespace vellix {

// What a canvas knows by itself, and forgets when it goes.
struct CanvasState {
  double opacity = 0.5;  // of what lies over
  bool difference = false;
  Int blink = 0;        // counts the swaps
  std::string drawnOn;  // key of the pane that a note was last begun on
};

struct PaneView {
  std::string key;    // of the ticket and the pane: another ticket's panes are others
  std::string img;    // blob key; empty turns the pane into the words below
  std::string thumb;  // blob key of the same, small; empty for none
  double aspect = 0;
  std::string label;
  std::string tone;
  std::string missing;  // what is not there
  std::string missingWhy;
  std::string side;         // of notes that begin here
  bool onStage = true;      // false while another has its turn
  std::string under;        // blob key of what lies over the picture; empty for nothing
  bool difference = false;  // shows how the two differ
  std::vector<BoxMarkView> boxes;
  std::vector<NoteMarkView> notes;
  DraftMarkView draft;
  bool operator==(const PaneView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PaneView, (),
                      (key, img, thumb, aspect, label, tone, missing, missingWhy, side, onStage,
                       under, difference, boxes, notes, draft))

struct PaneToggleView {
  std::string key;
  std::string label;
  std::string widest;  // that any page of such a ticket may have here
  std::string tone;
  std::string icon;
  std::string help;
  bool shown = false;
  bool operator==(const PaneToggleView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PaneToggleView, (), (key, label, widest, tone, icon, help, shown))

struct ModeView {
  std::string key;
  std::string label;
  bool operator==(const ModeView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ModeView, (), (key, label))
std::vector<ModeView> compareModes();
std::string keyOf(CompareMode mode);
std::optional<CompareMode> modeOf(const std::string& key);  // none for another word

struct CanvasBarView {
  std::string empty;  // said in place of the panes
  std::string mode;   // its key
  bool overlay = false;
  double opacity = 0.5;
  bool difference = false;
  bool draws = false;     // a drag over a page begins a note
  bool drafting = false;  // one is being written on this page
  Int page = 0;           // 0-based
  std::string place;      // "p{name} · {n} of {count}"
  std::string widest;     // of the places in a ticket of so many pages without names
  bool first = true;
  bool last = true;
  double zoom = 1;
  std::string percent;
  bool canZoomIn = true;
  bool canZoomOut = false;
  bool operator==(const CanvasBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CanvasBarView, (),
                      (empty, mode, overlay, opacity, difference, draws, drafting, page, place,
                       widest, first, last, zoom, percent, canZoomIn, canZoomOut))

struct CanvasView {
  CanvasBarView bar;
  std::vector<PaneView> panes;
  std::vector<PaneToggleView> toggles;
  LoupeView loupe;
  Int draftPane = -1;  // that the note being written is placed by; -1 for none
};

CanvasView canvasView(const Store& store, const FileDetail& detail, const CanvasState& state = {});
// The bar as it will be, as far as the ticket tells before its detail is here.
CanvasView waitingCanvas(const Store& store, const FileItem& file);
// The panes take turns on the stage instead of standing beside one another.
bool takesTurns(const Store& store);

}  // namespace vellix
