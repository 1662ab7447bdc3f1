#include "approval/ApprovalModel.hpp"

namespace vellix {

ApprovalModel::ApprovalModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(
          Store::kBoard | Store::kDetails | Store::kSelection | Store::kBusy | Store::kPolled,
          [this] { update(); })) {
  update();
}

void ApprovalModel::update() {
  const FileItem* file = store_.currentFile();
  const FileDetail* detail = store_.currentDetail();
  auto card =
      file ? approvalCard(store_, *file, detail, clock_.now(), calendar_) : ApprovalCardView{};
  if (card_.show(std::move(card))) emit cardChanged();
  auto versions = detail ? versionChips(store_, *detail) : std::vector<VersionChipView>{};
  if (versions_.show(std::move(versions))) emit versionsChanged();
}

void ApprovalModel::press(const QString& button) {
  pressApprovalButton(store_, button.toStdString());
}

void ApprovalModel::showVersion(qint64 n) { pressVersion(store_, n); }

}  // namespace vellix
