// The panes of a page: which, in which shape, under which caption.
#include <gtest/gtest.h>

#include "compare/canvas.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

using Numbers = std::optional<std::vector<double>>;
using Keys = std::set<std::string>;
using Texts = std::vector<std::string>;

const Keys kAll{"supplier", "submitted", "third"};

Page pageWith(std::map<std::string, RefPage> refs) {
  Page page;
  page.i = 4;
  page.img = "blob-supplier";
  page.px = std::vector<double>{300, 400};
  page.refs = std::move(refs);
  return page;
}

Texts keysOf(const std::vector<PaneInfo>& panes) {
  Texts keys;
  for (const auto& pane : panes) keys.push_back(pane.key);
  return keys;
}

Texts labelsOf(const std::vector<PaneInfo>& panes) {
  Texts labels;
  for (const auto& pane : panes) labels.push_back(pane.label);
  return labels;
}

struct Shape {
  const char* name;
  Numbers px;
  std::optional<double> w;
  std::optional<double> h;
  double aspect;
};
BOOST_DESCRIBE_STRUCT(Shape, (), (name, px, w, h, aspect))

class PageShapes : public testing::TestWithParam<Shape> {};

TEST_P(PageShapes, FallThrough) {
  const auto& each = GetParam();
  Page page;
  page.px = each.px;
  page.w = each.w;
  page.h = each.h;
  const auto panes = panesOf(page, ticketOf("t1"), 1, {"supplier"});
  ASSERT_EQ(panes.size(), 1U);
  EXPECT_DOUBLE_EQ(panes[0].aspect, each.aspect);
}

INSTANTIATE_TEST_SUITE_P(All, PageShapes,
                         testing::Values(Shape{"Pixels", {{300, 400}}, 1, 1, 0.75},
                                         Shape{"OnePixelNumber", {{300}}, 2, 4, 0.5},
                                         Shape{"ThreePixelNumbers", {{300, 400, 500}}, 2, 4, 0.5},
                                         Shape{"NoPixelHeight", {{300, 0}}, 2, 4, 0.5},
                                         Shape{"PixelHeightBelowZero", {{300, -400}}, 2, 4, 0.5},
                                         Shape{"NoPixels", {}, 2, 4, 0.5},
                                         Shape{"NoWidth", {}, {}, 4, 0.77},
                                         Shape{"NoHeight", {{300}}, 2, {}, 0.77},
                                         Shape{"HeightZero", {}, 2, 0, 0.77},
                                         Shape{"Nothing", {}, {}, {}, 0.77}),
                         [](const auto& each) { return each.param.name; });

struct RefShape {
  const char* name;
  Numbers px;
  double aspect;
};
BOOST_DESCRIBE_STRUCT(RefShape, (), (name, px, aspect))

class ReferenceShapes : public testing::TestWithParam<RefShape> {};

TEST_P(ReferenceShapes, FallBackToThePages) {
  const Page page = pageWith({{"submitted", RefPage{.px = GetParam().px}}});
  EXPECT_DOUBLE_EQ(panesOf(page, ticketOf("t1"), 1, {"submitted"}).at(0).aspect, GetParam().aspect);
}

INSTANTIATE_TEST_SUITE_P(All, ReferenceShapes,
                         testing::Values(RefShape{"OfItsOwn", {{500, 400}}, 1.25},
                                         RefShape{"OneNumber", {{500}}, 0.75},
                                         RefShape{"ThreeNumbers", {{500, 400, 1}}, 0.75},
                                         RefShape{"NoHeight", {{500, 0}}, 0.75},
                                         RefShape{"Untold", {}, 0.75}),
                         [](const auto& each) { return each.param.name; });

TEST(Panes, OfAFirstVersionAreThree) {
  FileItem file = ticketOf("t1");
  file.supplier = "Harrow Print";
  const Page page = pageWith({{"submitted", RefPage{.label = "iv", .img = "blob-submitted"}},
                              {"fbc", RefPage{.img = "blob-fbc", .px = Numbers{{100, 100}}}}});
  const std::vector<PaneInfo> expected{
      {"supplier", std::nullopt, "blob-supplier", 0.75, "Harrow Print file · p5", "purple"},
      {"submitted", "submitted", "blob-submitted", 0.75, "What we sent · piv", "blue"},
      {"fbc", "fbc", "blob-fbc", 1, "FBC · p5", "orange"}};
  EXPECT_EQ(panesOf(page, file, 1, kAll), expected);
}

TEST(Panes, OfARevisionAreTheTwoVersions) {
  FileItem file = ticketOf("t1");
  file.supplier = "Harrow Print";
  const Page page = pageWith({{"submitted", RefPage{.img = "blob-submitted"}},
                              {"previous", RefPage{.label = "9", .img = "blob-previous"}}});
  const std::vector<PaneInfo> expected{
      {"supplier", std::nullopt, "blob-supplier", 0.75, "v3 · p5", "purple"},
      {"previous", "previous", "blob-previous", 0.75, "v2 · p9", "orange"}};
  EXPECT_EQ(panesOf(page, file, 3, kAll), expected);
}

TEST(Panes, NameAReferenceThatIsNotThere) {
  const auto panes = panesOf(pageWith({}), ticketOf("t1"), 1, kAll);
  EXPECT_EQ(keysOf(panes), (Texts{"supplier", "submitted", "fbc"}));
  EXPECT_EQ(labelsOf(panes), (Texts{"Supplier file · p5", "What we sent · p5", "FBC · p5"}));
  EXPECT_FALSE(panes[1].img);
  EXPECT_FALSE(panes[2].img);
  EXPECT_DOUBLE_EQ(panes[2].aspect, 0.75);
}

TEST(Panes, CallAReprintsReferenceTheLastPrint) {
  FileItem file = ticketOf("t1");
  file.track = "reprint";
  const auto panes = panesOf(pageWith({}), file, 1, {"third"});
  EXPECT_EQ(keysOf(panes), Texts{"latest"});
  EXPECT_EQ(labelsOf(panes), Texts{"Last print · p5"});
  EXPECT_EQ(panes[0].tone, "orange");
}

TEST(Panes, TakeThePagesOwnNameUnlessItIsEmpty) {
  Page page = pageWith({});
  page.label = "cover";
  EXPECT_EQ(labelsOf(panesOf(page, ticketOf("t1"), 1, kAll)),
            (Texts{"Supplier file · pcover", "What we sent · pcover", "FBC · pcover"}));
  page.label = "";
  EXPECT_EQ(labelsOf(panesOf(page, ticketOf("t1"), 2, kAll)), (Texts{"v2 · p5", "v1 · p5"}));
}

struct Shown {
  const char* name;
  Int version;
  Keys shown;
  Texts keys;
};
BOOST_DESCRIBE_STRUCT(Shown, (), (name, version, shown, keys))

class ShownPanes : public testing::TestWithParam<Shown> {};

TEST_P(ShownPanes, AreThoseThatAreSwitchedOn) {
  const auto& each = GetParam();
  EXPECT_EQ(keysOf(panesOf(pageWith({}), ticketOf("t1"), each.version, each.shown)), each.keys);
}

INSTANTIATE_TEST_SUITE_P(
    All, ShownPanes,
    testing::Values(Shown{"SupplierAlone", 1, {"supplier"}, {"supplier"}},
                    Shown{"SubmittedAlone", 1, {"submitted"}, {"submitted"}},
                    Shown{"ThirdAlone", 1, {"third"}, {"fbc"}},
                    Shown{"WithoutTheSupplier", 1, {"submitted", "third"}, {"submitted", "fbc"}},
                    Shown{"RolesAreNoKeys", 1, {"fbc", "latest"}, {}},
                    Shown{"RevisionWithoutThird", 2, {"supplier", "submitted"}, {"supplier"}},
                    Shown{"RevisionWithSubmittedAlone", 2, {"submitted"}, {}},
                    Shown{"RevisionWithThirdAlone", 2, {"third"}, {"previous"}},
                    Shown{"VersionZeroIsAFirst", 0, {"submitted"}, {"submitted"}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
