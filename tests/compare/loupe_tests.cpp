// When the loupe opens, and what it shows.
#include "compare/loupe.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

using Texts = std::vector<std::string>;

class Loupes : public StoreTest {
 protected:
  Loupes() {
    detail.file.supplier = "Harrow Print";
    detail.findings = {findingOf("f1", 1)};
    finding().box = {0.4, 0.4, 0.1, 0.1};
    page.i = 1;
    page.img = "supplier-1";
    page.px = {770, 1'000};
    page.refs = {
        {"submitted", RefPage{.img = "submitted-1", .px = std::vector<double>{500, 1'000}}},
        {"fbc", RefPage{.img = "fbc-1"}}};
    store().focus.set("f1");
  }
  Finding& finding() { return detail.findings.front(); }
  LoupeView view(Texts roles = {"submitted", "fbc"}, Int index = 1) {
    return loupe(store(), detail, page, index, roles);
  }
  Texts labels(const LoupeView& of) {
    Texts all;
    for (const auto& crop : of.crops) all.push_back(crop.label);
    return all;
  }

  FileDetail detail = detailOf(ticketOf("t1"));
  Page page;
};

TEST_F(Loupes, ShowTheSpotOnEveryPage) {
  const auto shown = view();
  EXPECT_TRUE(shown.open);
  EXPECT_EQ(shown.caption, "Words · vs what we sent");
  EXPECT_EQ(shown.title, "One word changed");
  EXPECT_EQ(labels(shown), (Texts{"Harrow Print file", "What we sent", "FBC"}));
  EXPECT_EQ(shown.crops[0].img, "supplier-1");
  EXPECT_EQ(shown.crops[0].aspect, 0.77);
  EXPECT_EQ(shown.crops[0].colour, "accent");
  EXPECT_EQ(shown.crops[1].img, "submitted-1");
  EXPECT_EQ(shown.crops[1].aspect, 0.5);
  EXPECT_EQ(shown.crops[1].colour, "reference");
  EXPECT_EQ(shown.crops[2].aspect, 0.77) << "the page's own";
}

TEST_F(Loupes, ShowTheSameRectangleEverywhereWithoutAReferencesOwn) {
  for (const auto& crop : view().crops) {
    EXPECT_EQ(crop.boxes, (std::vector<Box>{{0.4, 0.4, 0.1, 0.1}}));
  }
}

TEST_F(Loupes, ShowAReferencesOwnRectangleOnThatReferenceAlone) {
  finding().ref_box = {0.7, 0.7, 0.1, 0.1};
  finding().boxes = {{0.1, 0.1, 0.1, 0.1}, {0.2, 0.2, 0.1, 0.1}};
  const auto crops = view().crops;
  EXPECT_EQ(crops[1].boxes, (std::vector<Box>{{0.7, 0.7, 0.1, 0.1}}));
  EXPECT_NEAR(crops[1].part.x, 0.58, 1e-9);
  for (const std::size_t other : {0U, 2U}) {
    EXPECT_EQ(crops[other].boxes.size(), 2U);
    EXPECT_NEAR(crops[other].part.x, 0.28, 1e-9) << "around the box, not the boxes";
  }
}

TEST_F(Loupes, LeaveOutAReferenceWithoutAPicture) {
  page.refs->at("submitted").img.reset();
  EXPECT_EQ(labels(view()), (Texts{"Harrow Print file", "FBC"}));
  EXPECT_EQ(labels(view({"submitted", "latest"})), Texts{"Harrow Print file"});
}

TEST_F(Loupes, FallBackToTheFindingsOwnReference) {
  EXPECT_EQ(labels(view({})), (Texts{"Harrow Print file", "What we sent"}));
}

TEST_F(Loupes, CallAnUnknownSupplierSo) {
  detail.file.supplier.reset();
  page.img.reset();
  EXPECT_EQ(view().crops[0].label, "Supplier file");
  EXPECT_EQ(view().crops[0].img, "");
}

TEST_F(Loupes, ShowTheWholePageForARectangleThatIsNone) {
  finding().box = {0.4, 0.4, 0.1};
  const auto crop = view().crops[0];
  EXPECT_EQ(crop.part, (Box{0, 0, 1, 1}));
  EXPECT_TRUE(crop.boxes.empty());
}

TEST_F(Loupes, AreShutWithoutAFindingInFocusHere) {
  EXPECT_FALSE(view({"submitted"}, 0).open) << "it is on another page";
  finding().box.reset();
  EXPECT_FALSE(view().open) << "it has no place";
  finding().box = {0.4, 0.4, 0.1, 0.1};
  store().focus.set("f9");
  EXPECT_FALSE(view().open) << "there is none of this name";
  store().focus.set(std::nullopt);
  EXPECT_FALSE(view().open);
}

TEST_F(Loupes, AreShutWhereTheyAreNotWanted) {
  store().prefs.openLoupe.set(false);
  EXPECT_FALSE(view().open);
}

TEST_F(Loupes, OpenForAFindingWhosePaneIsHidden) { EXPECT_TRUE(view({"fbc"}).open); }

}  // namespace
}  // namespace vellix
