// The values that views here take, by their names in QML.
#pragma once

#include "approval/approval_card.hpp"
#include "approval/approvers.hpp"
#include "approval/history.hpp"
#include "approval/origin.hpp"
#include "approval/send_sheet.hpp"
#include "approval/share_link.hpp"
#include "approval/upload_sheet.hpp"
#include "approval/version_chips.hpp"
#include "bridge/ViewType.hpp"

namespace vellix {

VELLIX_VIEW(ApprovalButtonView, approvalButtonView)
VELLIX_VIEW(ApprovalCardView, approvalCardView)
VELLIX_VIEW(ApproverAnswerView, approverAnswerView)
VELLIX_VIEW(ApproversSectionView, approversSectionView)
VELLIX_VIEW(ChangesAskedView, changesAskedView)
VELLIX_VIEW(CheckedAgainstView, checkedAgainstView)
VELLIX_VIEW(HistoryBlockView, historyBlockView)
VELLIX_VIEW(HistoryRowView, historyRowView)
VELLIX_VIEW(HistoryView, historyView)
VELLIX_VIEW(KeyApproverView, keyApproverView)
VELLIX_VIEW(OriginView, originView)
VELLIX_VIEW(PickedApproverView, pickedApproverView)
VELLIX_VIEW(SendSheetView, sendSheetView)
VELLIX_VIEW(ShareButtonView, shareButtonView)
VELLIX_VIEW(SharePopoverView, sharePopoverView)
VELLIX_VIEW(UploadSheetView, uploadSheetView)
VELLIX_VIEW(VersionChipView, versionChipView)

}  // namespace vellix
