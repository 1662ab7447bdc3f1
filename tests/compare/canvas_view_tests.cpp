// The words of the canvas and of its bar.
#include "compare/canvas_view.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

class Canvas : public StoreTest {
 protected:
  Canvas() {
    detail.file.supplier = "Harrow Print";
    detail.file.pages = pagesOf(3);
  }
  CanvasView view() { return canvasView(store(), detail); }
  void goTo(Int page) { store().page.set({{"t1", page}}); }
  std::vector<std::string> toggles() {
    std::vector<std::string> all;
    for (const auto& each : view().toggles) {
      all.push_back(each.key + " / " + each.label + " / " + each.tone);
    }
    return all;
  }

  FileDetail detail = detailOf(ticketOf("t1"));
};

using Texts = std::vector<std::string>;

struct Place {
  const char* name;
  Int pages;
  Int page;
  const char* place;
  bool first;
  bool last;
};
BOOST_DESCRIBE_STRUCT(Place, (), (name, pages, page, place, first, last))

class CanvasPlaces : public Canvas, public testing::WithParamInterface<Place> {};

TEST_P(CanvasPlaces, AreToldWithTheEndsOfTheTicket) {
  detail.file.pages = pagesOf(GetParam().pages);
  goTo(GetParam().page);
  EXPECT_EQ(view().bar.place, GetParam().place);
  EXPECT_EQ(view().bar.first, GetParam().first);
  EXPECT_EQ(view().bar.last, GetParam().last);
  EXPECT_EQ(view().bar.empty, "");
}

INSTANTIATE_TEST_SUITE_P(All, CanvasPlaces,
                         testing::Values(Place{"First", 3, 0, "p1 · 1 of 3", true, false},
                                         Place{"Middle", 3, 1, "p2 · 2 of 3", false, false},
                                         Place{"Last", 3, 2, "p3 · 3 of 3", false, true},
                                         Place{"Beyond", 3, 9, "p3 · 3 of 3", false, true},
                                         Place{"Only", 1, 0, "p1 · 1 of 1", true, true}),
                         [](const auto& each) { return each.param.name; });

TEST_F(Canvas, CallsThePageByItsOwnName) {
  (*detail.file.pages)[1].label = "iv";
  goTo(1);
  EXPECT_EQ(view().bar.place, "piv · 2 of 3");
}

struct WidestPlace {
  const char* name;
  Int pages;
  std::string widest;
};
BOOST_DESCRIBE_STRUCT(WidestPlace, (), (name, pages, widest))

class WidestPlaces : public Canvas, public testing::WithParamInterface<WidestPlace> {};

TEST_P(WidestPlaces, AreThoseOfANumberOfPagesWhateverTheyAreCalled) {
  detail.file.pages = pagesOf(GetParam().pages);
  EXPECT_EQ(view().bar.widest, GetParam().widest);
  for (auto& page : *detail.file.pages) page.label = "pages " + std::to_string(page.i) + "–W";
  for (const Int page : {Int{0}, GetParam().pages - 1}) {
    goTo(page);
    EXPECT_EQ(view().bar.widest, GetParam().widest) << page;
  }
}

INSTANTIATE_TEST_SUITE_P(All, WidestPlaces,
                         testing::Values(WidestPlace{"Only", 1, "p10 · 10 of 10"},
                                         WidestPlace{"OneDigit", 9, "p10 · 10 of 10"},
                                         WidestPlace{"TwoDigits", 12, "p12 · 12 of 12"},
                                         WidestPlace{"ThreeDigits", 240, "p240 · 240 of 240"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(Canvas, HasTheRoomOfAPlaceWithoutPages) {
  detail.file.pages = pagesOf(0);
  EXPECT_EQ(view().bar.widest, "p10 · 10 of 10");
}

struct WidestThird {
  const char* name;
  const char* track;
  std::optional<std::string> ref;  // that the ticket itself has
  std::string widest;
};
BOOST_DESCRIBE_STRUCT(WidestThird, (), (name, track, ref, widest))

class WidestThirds : public Canvas, public testing::WithParamInterface<WidestThird> {};

// The third pane may be another one on another page.
TEST_P(WidestThirds, AreTheSameOnEveryPage) {
  detail.file.track = GetParam().track;
  if (GetParam().ref) detail.file.refs = {{.role = *GetParam().ref}};
  (*detail.file.pages)[0].refs = {{"fbc", RefPage{}}};
  (*detail.file.pages)[1].refs = {{"latest", RefPage{}}};
  for (const Int page : {0, 1, 2}) {
    goTo(page);
    EXPECT_EQ(view().toggles[2].widest, GetParam().widest) << page;
    EXPECT_EQ(view().toggles[0].widest, "Harrow Print");
  }
}

INSTANTIATE_TEST_SUITE_P(All, WidestThirds,
                         testing::Values(WidestThird{"Known", "new", "fbc", "FBC"},
                                         WidestThird{"Either", "new", {}, "Last print"},
                                         WidestThird{"Other", "new", "latest", "Last print"},
                                         WidestThird{"Reprint", "reprint", "latest", "Last print"},
                                         WidestThird{"EitherOfAReprint", "reprint", "fbc",
                                                     "Last print"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(Canvas, OfATicketWithoutPagesKeepsItsBar) {
  for (const auto& pages : {std::optional{pagesOf(0)}, std::optional<std::vector<Page>>{}}) {
    detail.file.pages = pages;
    EXPECT_EQ(view().bar.empty, "No pages in this file.");
    EXPECT_TRUE(view().panes.empty());
    EXPECT_TRUE(view().bar.first);
    EXPECT_TRUE(view().bar.last);
    EXPECT_EQ(view().bar.percent, "100%");
    EXPECT_EQ(toggles(), (Texts{"supplier / Harrow Print / purple",
                                "submitted / What we sent / blue", "third / FBC / orange"}));
  }
}

TEST_F(Canvas, TogglesTheThreePanesOfAFirstVersion) {
  detail.file.track = "reprint";
  EXPECT_EQ(toggles(), (Texts{"supplier / Harrow Print / purple", "submitted / What we sent / blue",
                              "third / Last print / orange"}));
  detail.file.supplier.reset();
  EXPECT_EQ(toggles()[0], "supplier / Supplier / purple");
}

TEST_F(Canvas, NamesTheThirdToggleByThePage) {
  (*detail.file.pages)[1].refs = {{"latest", RefPage{}}};
  EXPECT_EQ(toggles()[2], "third / FBC / orange");
  goTo(1);
  EXPECT_EQ(toggles()[2], "third / Last print / orange");
}

TEST_F(Canvas, TogglesTheTwoVersionsOfARevision) {
  detail.version = 4;
  EXPECT_EQ(toggles(), (Texts{"supplier / v4 / purple", "third / v3 / orange"}));
}

TEST_F(Canvas, MarksAToggleByWhetherItsPaneIsShown) {
  store().shown.set({"supplier"});
  const auto toggles = view().toggles;
  EXPECT_EQ(toggles[0], (PaneToggleView{"supplier", "Harrow Print", "Harrow Print", "purple",
                                        "checkmark.circle.fill", "Hide this page", true}));
  EXPECT_EQ(toggles[1], (PaneToggleView{"submitted", "What we sent", "What we sent", "blue",
                                        "circle", "Show this page", false}));
}

struct Zoom {
  const char* name;
  double zoom;
  const char* percent;
  bool out;
  bool in;
};
BOOST_DESCRIBE_STRUCT(Zoom, (), (name, zoom, percent, out, in))

class CanvasZooms : public Canvas, public testing::WithParamInterface<Zoom> {};

TEST_P(CanvasZooms, AreToldInPercentAndEndAtTheirBounds) {
  store().zoom.set(GetParam().zoom);
  const auto bar = view().bar;
  EXPECT_EQ(bar.zoom, GetParam().zoom);
  EXPECT_EQ(bar.percent, GetParam().percent);
  EXPECT_EQ(bar.canZoomOut, GetParam().out);
  EXPECT_EQ(bar.canZoomIn, GetParam().in);
}

INSTANTIATE_TEST_SUITE_P(All, CanvasZooms,
                         testing::Values(Zoom{"Fit", 1, "100%", false, true},
                                         Zoom{"JustAboveFit", 1.006, "101%", true, true},
                                         Zoom{"AtTheGuard", 1.01, "101%", true, true},
                                         Zoom{"AboveTheGuard", 1.011, "101%", true, true},
                                         Zoom{"RoundedDown", 1.374, "137%", true, true},
                                         Zoom{"RoundedUp", 1.376, "138%", true, true},
                                         Zoom{"JustBelowTheMost", 3.99, "399%", true, true},
                                         Zoom{"TheMost", 4, "400%", true, false}),
                         [](const auto& each) { return each.param.name; });

struct Missing {
  const char* name;
  Int version;
  const char* track;
  const char* key;  // of the pane, among all that are missing
  const char* says;
};
BOOST_DESCRIBE_STRUCT(Missing, (), (name, version, track, key, says))

class MissingPanes : public Canvas, public testing::WithParamInterface<Missing> {
 protected:
  PaneView pane() {
    for (const auto& each : view().panes) {
      if (each.key == std::string{"t1 "} + GetParam().key) return each;
    }
    return {};
  }
};

TEST_P(MissingPanes, SayWhatIsNotThere) {
  detail.version = GetParam().version;
  detail.file.track = GetParam().track;
  EXPECT_EQ(pane().img, "");
  EXPECT_EQ(pane().missing, GetParam().says);
  EXPECT_EQ(pane().missingWhy, "The sync couldn't find one to compare with.");
}

INSTANTIATE_TEST_SUITE_P(
    All, MissingPanes,
    testing::Values(Missing{"Supplier", 1, "", "supplier", "No file of ours for this page"},
                    Missing{"Submitted", 1, "", "submitted", "No file of ours for this page"},
                    Missing{"Fbc", 1, "", "fbc", "No FBC for this page"},
                    Missing{"Latest", 1, "reprint", "latest", "No Last print for this page"},
                    Missing{"Previous", 2, "", "previous", "No Last version for this page"}),
    [](const auto& each) { return each.param.name; });

TEST_F(Canvas, TellsTheNoteOfAMissingReference) {
  detail.file.refs = {{.role = "fbc", .note = "Only the cover was kept."}, {.role = "submitted"}};
  const auto panes = view().panes;
  EXPECT_EQ(panes.at(2).missingWhy, "Only the cover was kept.");
  EXPECT_EQ(panes.at(1).missingWhy, "The sync couldn't find one to compare with.");
}

TEST_F(Canvas, ShowsAnotherReferenceOnlyWhenTheTicketHasNoneOfItsOwn) {
  detail.file.track = "reprint";
  detail.file.pages = pagesOf(1);
  detail.file.pages->front().refs = {{"fbc", RefPage{.img = "blob-fbc"}}};
  EXPECT_EQ(view().panes.at(2).img, "blob-fbc");
  EXPECT_EQ(view().panes.at(2).label, "FBC · p1");
  detail.file.refs = {{.role = "latest"}};
  EXPECT_EQ(view().panes.at(2).img, "");
  EXPECT_EQ(view().panes.at(2).missing, "No Last print for this page");
}

TEST_F(Canvas, ShowsAPaneWithItsPicture) {
  detail.file.pages->front().img = "blob-1";
  detail.file.pages->front().px = {200, 400};
  EXPECT_EQ(view().panes.at(0), (PaneView{.key = "t1 supplier",
                                          .img = "blob-1",
                                          .aspect = 0.5,
                                          .label = "Harrow Print file · p1",
                                          .tone = "purple",
                                          .side = "supplier"}));
}

TEST_F(Canvas, TakesAnEmptyPictureForNone) {
  detail.file.pages->front().img = "";
  EXPECT_EQ(view().panes.at(0).missing, "No file of ours for this page");
}

TEST_F(Canvas, GivesPanesOfAnotherTicketOtherKeys) {
  const auto here = view().panes.at(0).key;
  detail.file.id = "t2";
  EXPECT_NE(view().panes.at(0).key, here);
}

}  // namespace
}  // namespace vellix
