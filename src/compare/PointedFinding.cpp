#include "compare/PointedFinding.hpp"

namespace vellix {

PointedFinding::~PointedFinding() { tell(false); }

void PointedFinding::setCompare(CompareModel* compare) {
  if (compare == compare_) return;
  tell(false);
  if (compare_) compare_->disconnect(this);
  compare_ = compare;
  if (compare_) connect(compare_, &CompareModel::pointedChanged, this, &PointedFinding::look);
  tell(true);
  emit compareChanged();
  look();
}

void PointedFinding::setFinding(const QString& finding) {
  if (finding == finding_) return;
  tell(false);
  finding_ = finding;
  tell(true);
  emit findingChanged();
  look();
}

void PointedFinding::setUnder(bool under) {
  if (under == under_) return;
  tell(false);
  under_ = under;
  tell(true);
  emit underChanged();
}

// That the pointer, if it is here, has come to the finding or left it.
void PointedFinding::tell(bool on) {
  if (under_ && compare_) compare_->point(finding_, on);
}

void PointedFinding::look() {
  const bool pointed = compare_ && !finding_.isEmpty() && compare_->pointed() == finding_;
  if (pointed == pointed_) return;
  pointed_ = pointed;
  emit pointedChanged();
}

}  // namespace vellix
