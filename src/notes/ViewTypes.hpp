// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "notes/composer.hpp"
#include "notes/note_row.hpp"
#include "notes/note_tags.hpp"

namespace vellix {

VELLIX_VIEW(ComposerView, composerView)
VELLIX_VIEW(DraftCardView, draftCardView)
VELLIX_VIEW(NoteRowView, noteRowView)
VELLIX_VIEW(TagChipView, tagChipView)
VELLIX_VIEW(TagEntryView, tagEntryView)

}  // namespace vellix
