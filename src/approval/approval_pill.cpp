#include "approval/approval_pill.hpp"

#include "approval/approval_stage.hpp"

namespace vellix {

std::optional<PillView> approvalPill(const FileItem& file, bool small) {
  const ApprovalStage& stage = approvalStage(file);
  if (!stage.pill) return std::nullopt;
  return PillView{
      .text = small && !stage.smallPill.empty() ? std::string{stage.smallPill} : stage.pill(file),
      .icon = std::string{stage.icon},
      .tone = std::string{stage.tone}};
}

}  // namespace vellix
