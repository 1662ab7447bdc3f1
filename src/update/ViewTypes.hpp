// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "update/update_prompts.hpp"

namespace vellix {

VELLIX_VIEW(RequiredUpdateView, requiredUpdateView)
VELLIX_VIEW(UpdateBarView, updateBarView)
VELLIX_VIEW(UpdateStepView, updateStepView)

}  // namespace vellix
