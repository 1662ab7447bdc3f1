// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "profile/on_time_ring.hpp"
#include "profile/profile_page.hpp"

namespace vellix {

VELLIX_VIEW(OnTimeRingView, onTimeRingView)
VELLIX_VIEW(ProfileHeadView, profileHeadView)
VELLIX_VIEW(ProfileWordsView, profileWordsView)

}  // namespace vellix
