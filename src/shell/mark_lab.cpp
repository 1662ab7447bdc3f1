#include "shell/mark_lab.hpp"

namespace vellix {

MarkLabView markLab() {
  return {
      .tones = {"purple", "amber", "green", "red", "orange", "blue", "gray"},
      .colours = {"accent", "success", "danger", "warning", "text", "ink", "muted", "window",
                  "column", "card", "well", "line"},
      .samples = {{"Overdue 5 hr", "clock", "red"},
                  {"Due today 6 PM", "clock", "orange"},
                  {"Due Wed 3 PM", "clock", "gray"},
                  {"Up to date", "checkmark.circle", "green"},
                  {"Offline", "wifi.slash", "gray"},
                  {"Ready in about 40 sec", "", "blue", true}},
      .statuses = {statusPill("new"), statusPill("in_review"), statusPill("reviewed")},
      .severities = {severityPill("high"), severityPill("medium"), severityPill("low")},
      .tracks = {trackPill(true), trackPill(false)},
  };
}

}  // namespace vellix
