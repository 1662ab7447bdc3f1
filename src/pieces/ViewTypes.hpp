// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "pieces/avatar.hpp"
#include "pieces/choice.hpp"
#include "pieces/date_picker.hpp"
#include "pieces/vocabulary.hpp"

namespace vellix {

VELLIX_VIEW(AvatarView, avatarView)
VELLIX_VIEW(ChoiceView, choiceView)
VELLIX_VIEW(DatePickerView, datePickerView)
VELLIX_VIEW(PillView, pillView)

}  // namespace vellix
