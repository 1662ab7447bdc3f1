// Which panes are shown, how, and how large.
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Keys = std::set<std::string>;

struct Toggle {
  const char* name;
  Keys before;
  const char* key;
  Keys after;
};
BOOST_DESCRIBE_STRUCT(Toggle, (), (name, before, key, after))

class PaneToggles : public StoreTest, public testing::WithParamInterface<Toggle> {};

TEST_P(PaneToggles, LeaveAtLeastOnePane) {
  store().shown.set(GetParam().before);
  store().focus.set("f1");
  store().togglePane(GetParam().key);
  EXPECT_EQ(store().shown(), GetParam().after);
  EXPECT_FALSE(store().focus());
}

INSTANTIATE_TEST_SUITE_P(
    All, PaneToggles,
    testing::Values(
        Toggle{"Hides", {"submitted", "supplier", "third"}, "third", {"submitted", "supplier"}},
        Toggle{"Shows", {"supplier"}, "third", {"supplier", "third"}},
        Toggle{"KeepsTheLast", {"supplier"}, "supplier", {"supplier"}},
        Toggle{"CountsAKeyLeftOver", {"submitted", "supplier"}, "supplier", {"submitted"}}),
    [](const auto& each) { return each.param.name; });

TEST_F(StoreTest, IgnoresAPaneThatThereIsNone) {
  store().shown.set({"supplier"});
  for (const char* key : {"latest", "fbc", ""}) store().togglePane(key);
  EXPECT_EQ(store().shown(), Keys{"supplier"});
}

TEST_F(StoreTest, StartsWithAllThreePanesShown) {
  EXPECT_EQ(store().shown(), (Keys{"submitted", "supplier", "third"}));
}

TEST_F(StoreTest, ComparesInTheModeThatIsSet) {
  EXPECT_EQ(store().mode(), CompareMode::side);
  store().setMode(CompareMode::blink);
  EXPECT_EQ(store().mode(), CompareMode::blink);
}

struct ZoomCase {
  double from;
  double factor;
  double to;
};
BOOST_DESCRIBE_STRUCT(ZoomCase, (), (from, factor, to))

class ZoomSteps : public StoreTest, public testing::WithParamInterface<ZoomCase> {};

TEST_P(ZoomSteps, AreRoundedToQuartersBetweenOneAndFour) {
  store().zoom.set(GetParam().from);
  store().stepZoom(GetParam().factor);
  EXPECT_EQ(store().zoom(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    All, ZoomSteps,
    testing::Values(ZoomCase{1.0, 1.25, 1.25}, ZoomCase{1.25, 1.25, 1.5},  // 1.5625
                    ZoomCase{1.5, 1.25, 2.0},                              // 1.875, half a quarter
                    ZoomCase{2.0, 1.25, 2.5}, ZoomCase{2.5, 1.25, 3.25},   // 3.125, half a quarter
                    ZoomCase{3.25, 1.25, 4.0}, ZoomCase{3.75, 1.25, 4.0}, ZoomCase{4.0, 1.25, 4.0},
                    ZoomCase{4.0, 0.8, 3.25}, ZoomCase{3.25, 0.8, 2.5}, ZoomCase{2.5, 0.8, 2.0},
                    ZoomCase{1.25, 0.8, 1.0}, ZoomCase{1.0, 0.8, 1.0}, ZoomCase{1.0, 0.0, 1.0},
                    ZoomCase{1.0, 100.0, 4.0}, ZoomCase{1.0, -3.0, 1.0}, ZoomCase{1.0, 1.125, 1.25},
                    ZoomCase{1.0, 1.124, 1.0}));

TEST_F(StoreTest, FitsTheZoom) {
  store().zoom.set(3.25);
  store().fitZoom();
  EXPECT_EQ(store().zoom(), 1.0);
}

}  // namespace
}  // namespace vellix
