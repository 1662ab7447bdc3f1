// The values that views here take, by their names in QML.
#pragma once

#include "board/assign_button.hpp"
#include "board/due_button.hpp"
#include "board/due_dates.hpp"
#include "board/file_list.hpp"
#include "board/file_row.hpp"
#include "board/live_dot.hpp"
#include "board/sync_card.hpp"
#include "bridge/ViewType.hpp"

namespace vellix {

VELLIX_VIEW(AssignButtonView, assignButtonView)
VELLIX_VIEW(DueButtonView, dueButtonView)
VELLIX_VIEW(DueChipView, dueChipView)
VELLIX_VIEW(FileCountView, fileCountView)
VELLIX_VIEW(FileListHead, fileListHead)
VELLIX_VIEW(FileRowView, fileRowView)
VELLIX_VIEW(LiveDotView, liveDotView)
VELLIX_VIEW(QueueView, queueView)
VELLIX_VIEW(ReviewerView, reviewerView)
VELLIX_VIEW(SyncCardView, syncCardView)

}  // namespace vellix
