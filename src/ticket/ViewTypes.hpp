// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "ticket/file_header.hpp"
#include "ticket/multi_view.hpp"
#include "ticket/notes_panel.hpp"
#include "ticket/review_button.hpp"

namespace vellix {

VELLIX_VIEW(FactView, factView)
VELLIX_VIEW(FileHeaderView, fileHeaderView)
VELLIX_VIEW(LinkView, linkView)
VELLIX_VIEW(MultiFilesView, multiFilesView)
VELLIX_VIEW(NotesPanelView, notesPanelView)
VELLIX_VIEW(ReviewButtonView, reviewButtonView)

}  // namespace vellix
