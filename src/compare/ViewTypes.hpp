// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "compare/canvas_view.hpp"
#include "compare/crop.hpp"
#include "compare/draft_place.hpp"
#include "compare/loupe.hpp"
#include "compare/page_marks.hpp"
#include "compare/stage.hpp"

namespace vellix {

VELLIX_VIEW(CanvasBarView, canvasBarView)
VELLIX_VIEW(CropLayout, cropLayout)
VELLIX_VIEW(CropView, cropView)
VELLIX_VIEW(DraftMarkView, draftMarkView)
VELLIX_VIEW(DraftPlaceView, draftPlaceView)
VELLIX_VIEW(LoupeView, loupeView)
VELLIX_VIEW(ModeView, modeView)
VELLIX_VIEW(NoteMarkView, noteMarkView)
VELLIX_VIEW(PanePlace, panePlace)
VELLIX_VIEW(StageLayout, stageLayout)

}  // namespace vellix
