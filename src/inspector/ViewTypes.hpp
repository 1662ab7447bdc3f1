// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "inspector/finding_card.hpp"
#include "inspector/findings_panel.hpp"
#include "inspector/keyboard_way.hpp"

namespace vellix {

VELLIX_VIEW(FindingsHead, findingsHead)
VELLIX_VIEW(KeyboardWay, keyboardWay)
VELLIX_VIEW(WordingView, wordingView)

}  // namespace vellix
