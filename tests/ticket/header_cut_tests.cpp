// Where the header of a ticket ends in a low window.
#include "ticket/header_cut.hpp"

#include <gtest/gtest.h>

#include <boost/describe.hpp>

namespace vellix {
namespace {

struct Cut {
  const char* name;
  std::vector<double> ends;
  double most;
  double height;
};
BOOST_DESCRIBE_STRUCT(Cut, (), (name, ends, most, height))

class HeaderCuts : public testing::TestWithParam<Cut> {};

TEST_P(HeaderCuts, EndWithAWholeBlock) {
  EXPECT_EQ(headerCut(GetParam().ends, 12, GetParam().most), GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(All, HeaderCuts,
                         testing::Values(Cut{"AllOfIt", {40, 76, 140}, 200, 152},
                                         Cut{"AllOfItJust", {40, 76, 140}, 152, 152},
                                         Cut{"OneLess", {40, 76, 140}, 151, 88},
                                         Cut{"TheFirst", {40, 76, 140}, 60, 52},
                                         Cut{"ABlockThatIsNotThere", {40, 40, 140}, 60, 52},
                                         Cut{"ALineBesideThem", {76, 40, 58, 140}, 120, 88},
                                         Cut{"ALineBesideWhatIsTooHigh", {76, 40}, 70, 70},
                                         Cut{"AFirstThatIsTooHigh", {400, 420}, 184, 184},
                                         Cut{"Nothing", {}, 184, 184}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
