// Which panes of a page are shown, how, and how large.
#include <algorithm>
#include <cmath>

#include "store/store.hpp"

namespace vellix {

void Store::setMode(CompareMode value) { mode.set(value); }

void Store::togglePane(const std::string& key) {
  if (key != "supplier" && key != "submitted" && key != "third") return;
  auto panes = shown();
  if (!panes.contains(key)) {
    panes.insert(key);
  } else if (panes.size() > 1) {
    panes.erase(key);
  }
  shown.set(std::move(panes));
  clearFocus();
}

void Store::stepZoom(double factor) { zoomTo(std::round(zoom() * factor * 4) / 4); }

void Store::zoomTo(double value) {
  if (!std::isnan(value)) zoom.set(std::clamp(value, 1.0, 4.0));
}

void Store::fitZoom() { zoom.set(1.0); }

}  // namespace vellix
