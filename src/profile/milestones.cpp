#include "profile/milestones.hpp"

#include <algorithm>
#include <array>
#include <string_view>

#include "profile/counts.hpp"

namespace vellix {
namespace {

using Counter = Int (*)(const PersonStats&);

Int caught(const PersonStats& stats, const std::string& kind) {
  const auto found = stats.by_kind.find(kind);
  return found == stats.by_kind.end() ? 0 : found->second;
}

Int reviewed(const PersonStats& stats) { return stats.reviewed; }
Int issues(const PersonStats& stats) { return stats.issues; }
Int streak(const PersonStats& stats) { return stats.streak; }
Int onTime(const PersonStats& stats) { return stats.on_time; }
Int barcodes(const PersonStats& stats) { return caught(stats, "barcode"); }
Int spotColors(const PersonStats& stats) { return caught(stats, "spots"); }
Int notes(const PersonStats& stats) { return stats.notes; }

struct Milestone {
  std::string_view id;
  std::string_view icon;
  Counter have;
  Int need;
};
constexpr std::array kMilestones{
    Milestone{"First review", "checkmark.seal", reviewed, 1},
    Milestone{"10 reviews", "square.stack.3d.up", reviewed, 10},
    Milestone{"50 reviews", "square.stack.3d.up.fill", reviewed, 50},
    Milestone{"100 reviews", "trophy", reviewed, 100},
    Milestone{"First real issue", "exclamationmark.triangle", issues, 1},
    Milestone{"25 issues caught", "scope", issues, 25},
    Milestone{"100 issues caught", "eye", issues, 100},
    Milestone{"3 days in a row", "flame", streak, 3},
    Milestone{"10 days in a row", "flame.fill", streak, 10},
    Milestone{"10 on time", "clock.badge.checkmark", onTime, 10},
    Milestone{"First barcode catch", "barcode", barcodes, 1},
    Milestone{"First spot color catch", "paintpalette", spotColors, 1},
    Milestone{"25 notes", "text.bubble", notes, 25},
};

MilestoneView viewOf(const Milestone& milestone, Int have) {
  MilestoneView view{.id = std::string{milestone.id},
                     .icon = std::string{milestone.icon},
                     .earned = have >= milestone.need,
                     .progress = "Earned",
                     .fraction = fractionOf(have, milestone.need),
                     .spoken = {}};
  if (!view.earned) view.progress = countText(have) + " of " + std::to_string(milestone.need);
  view.spoken = view.id + ", " + view.progress;
  return view;
}

}  // namespace

MilestonesView milestones(const PersonStats& stats) {
  MilestonesView view;
  for (const Milestone& each : kMilestones) view.rows.push_back(viewOf(each, each.have(stats)));
  const auto earned = std::ranges::count(view.rows, true, &MilestoneView::earned);
  view.title = "Milestones " + std::to_string(earned) + " of " + std::to_string(view.rows.size());
  return view;
}

}  // namespace vellix
