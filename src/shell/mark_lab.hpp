// The sample values of the developer's sheet that draws every mark in its states.
#pragma once

#include <vector>

#include "pieces/vocabulary.hpp"

namespace vellix {

struct LabPill {
  std::string text;
  std::string icon;
  std::string tone;
  bool spinning = false;
  bool operator==(const LabPill&) const = default;
};
BOOST_DESCRIBE_STRUCT(LabPill, (), (text, icon, tone, spinning))

struct MarkLabView {
  std::vector<std::string> tones;
  std::vector<std::string> colours;  // named colours beside the tones
  std::vector<LabPill> samples;
  std::vector<PillView> statuses;
  std::vector<PillView> severities;
  std::vector<PillView> tracks;
  bool operator==(const MarkLabView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MarkLabView, (), (tones, colours, samples, statuses, severities, tracks))

MarkLabView markLab();

}  // namespace vellix
