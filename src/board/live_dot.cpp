#include "board/live_dot.hpp"

#include "pieces/written_keys.hpp"
#include "records/friendly_time.hpp"

namespace vellix {
namespace {

constexpr double kFresh = 90;  // seconds

LiveDotView stateOf(const Store& store, Moment now, const Calendar& calendar) {
  if (store.refreshing()) return {.text = "Checking", .tone = "blue", .spinning = true};
  if (store.problem()) return {.text = "Offline", .icon = "wifi.slash", .tone = "gray"};
  const auto& lastOK = store.lastOK();
  if (!lastOK) return {.text = "Connecting", .tone = "blue", .spinning = true};
  if (secondsBetween(*lastOK, now) < kFresh) {
    return {.text = "Up to date", .icon = "checkmark.circle", .tone = "green"};
  }
  return {
      .text = "Updated " + friendlyTime(*lastOK, now, calendar), .icon = "clock", .tone = "gray"};
}

}  // namespace

LiveDotView liveDot(const Store& store, Moment now, const Calendar& calendar) {
  LiveDotView view = stateOf(store, now, calendar);
  view.help = store.problem().value_or(writtenKeys("Refresh (⌘R)"));
  return view;
}

}  // namespace vellix
