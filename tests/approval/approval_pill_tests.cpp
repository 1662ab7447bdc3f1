#include "approval/approval_pill.hpp"

#include <gtest/gtest.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

struct PillCase {
  const char* name;
  std::optional<std::string> state;
  std::optional<Int> version;
  std::optional<PillView> whole;
  std::optional<PillView> small;
};
BOOST_DESCRIBE_STRUCT(PillCase, (), (name, state, version, whole, small))

class ApprovalPills : public testing::TestWithParam<PillCase> {};

TEST_P(ApprovalPills, TellTheState) {
  FileItem file = ticketOf("t1");
  file.approval = GetParam().state;
  file.version = GetParam().version;
  EXPECT_EQ(approvalPill(file, false), GetParam().whole);
  EXPECT_EQ(approvalPill(file, true), GetParam().small);
}

PillView pill(const char* text, const char* icon, const char* tone) {
  return {.text = text, .icon = icon, .tone = tone};
}
PillCase alike(const char* name, const char* state, std::optional<Int> version, PillView shown) {
  return {name, state, version, shown, shown};
}

constexpr const char* kTurned = "arrow.triangle.2.circlepath";

INSTANTIATE_TEST_SUITE_P(
    All, ApprovalPills,
    testing::Values(
        PillCase{"Absent", std::nullopt, 2, std::nullopt, std::nullopt},
        PillCase{"Empty", "", 2, std::nullopt, std::nullopt},
        PillCase{"Unknown", "on_hold", 2, std::nullopt, std::nullopt},
        PillCase{"KnownByAnotherCase", "Pending", 2, std::nullopt, std::nullopt},
        alike("Pending", "pending", 2, pill("Out for approval", "clock", "amber")),
        PillCase{"Changes", "changes", 2, pill("Changes asked", "arrow.uturn.backward", "red"),
                 pill("Changes", "arrow.uturn.backward", "red")},
        alike("Revised", "revised", 3, pill("v3 to send", kTurned, "blue")),
        alike("RevisedWithoutNumber", "revised", std::nullopt, pill("v1 to send", kTurned, "blue")),
        alike("Approved", "approved", 2, pill("Approved", "checkmark.seal", "green")),
        alike("Sent", "sent", 2, pill("Sent", "paperplane", "green"))),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
