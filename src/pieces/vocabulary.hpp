// The words, symbols and tones that statuses, severities and tracks always go by.
#pragma once

#include <boost/describe.hpp>
#include <string>
#include <string_view>

namespace vellix {

// What a pill shows. `icon` is a symbol name, empty for none; `dashed` puts a dashed ring in its
// place; `tone` names one of the theme's tones.
struct PillView {
  std::string text;
  std::string icon;
  std::string tone;
  bool dashed = false;

  bool operator==(const PillView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PillView, (), (text, icon, tone, dashed))

// An unknown status reads "New", an unknown severity "Minor".
PillView statusPill(std::string_view status);
PillView severityPill(std::string_view severity);
PillView trackPill(bool reprint);

}  // namespace vellix
