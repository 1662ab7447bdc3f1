// Boxes in lines.
#include "pieces/flow_row.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Flowing {
  const char* name;
  std::vector<FlowBox> boxes;
  double width;
  std::vector<FlowSpot> spots;
  double oneLine;
  double height;
};
BOOST_DESCRIBE_STRUCT(Flowing, (), (name, width, oneLine, height))

class FlowRows : public testing::TestWithParam<Flowing> {};

TEST_P(FlowRows, GoOnInANewLine) {
  const auto& each = GetParam();
  const FlowPlan plan = flowRow(each.boxes, each.width, 10);
  ASSERT_EQ(plan.spots.size(), each.spots.size());
  for (std::size_t i = 0; i < plan.spots.size(); ++i) {
    EXPECT_EQ(plan.spots[i].x, each.spots[i].x) << i;
    EXPECT_EQ(plan.spots[i].y, each.spots[i].y) << i;
  }
  EXPECT_EQ(plan.oneLine, each.oneLine);
  EXPECT_EQ(plan.height, each.height);
}

INSTANTIATE_TEST_SUITE_P(
    All, FlowRows,
    testing::Values(Flowing{"Nothing", {}, 100, {}, 0, 0},
                    Flowing{"One", {{50, 20}}, 100, {{0, 0}}, 50, 20},
                    Flowing{"OneTooWide", {{150, 20}}, 100, {{0, 0}}, 150, 20},
                    Flowing{"JustFitting", {{45, 20}, {45, 20}}, 100, {{0, 0}, {55, 0}}, 100, 20},
                    Flowing{
                        "JustNotFitting", {{45, 20}, {46, 20}}, 100, {{0, 0}, {0, 30}}, 101, 50},
                    Flowing{"CentredOnItsLine",
                            {{20, 30}, {20, 10}, {20, 11}},
                            100,
                            {{0, 0}, {30, 10}, {60, 10}},
                            80,
                            30},
                    Flowing{"CentredOnItsOwnLineAlone",
                            {{60, 30}, {60, 10}, {20, 20}},
                            100,
                            {{0, 0}, {0, 45}, {70, 40}},
                            160,
                            60},
                    Flowing{"ALineForWhatIsTooWide",
                            {{20, 10}, {150, 20}, {20, 10}},
                            100,
                            {{0, 0}, {0, 20}, {0, 50}},
                            210,
                            60},
                    Flowing{"WithoutAWidth", {{60, 10}, {60, 10}}, 0, {{0, 0}, {70, 0}}, 130, 10}),
    [](const auto& each) { return each.param.name; });

TEST(FlowRow, FitsInAsMuchAsItTakes) {
  for (const double spacing : {0.1, 0.3, 1.1}) {
    const std::vector<FlowBox> boxes{{0.1, 1}, {0.2, 1}, {0.3, 1}, {0.7, 1}};
    const FlowPlan plan = flowRow(boxes, flowRow(boxes, 0, spacing).oneLine, spacing);
    EXPECT_EQ(plan.height, 1) << spacing;
  }
}

}  // namespace
}  // namespace vellix
