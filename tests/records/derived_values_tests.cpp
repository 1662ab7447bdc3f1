// The values computed from records.
#include <limits>

#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

using Text = std::optional<std::string>;
constexpr auto none = std::nullopt;

FileItem ticket(Text title, Text component, Text filename) {
  FileItem made;
  made.title = std::move(title);
  made.component = std::move(component);
  made.filename = std::move(filename);
  return made;
}

TEST(Heading, JoinsTitleAndComponentOrFallsBackToTheFile) {
  EXPECT_EQ(ticket("The Tide", "Cover", "a.pdf").heading(), "The Tide Cover");
  EXPECT_EQ(ticket("The Tide", none, "a.pdf").heading(), "The Tide");
  EXPECT_EQ(ticket("The Tide", "", "a.pdf").heading(), "The Tide");
  EXPECT_EQ(ticket("", "Cover", "a.pdf").heading(), "Cover");
  EXPECT_EQ(ticket(none, "Cover", "a.pdf").heading(), "Cover");
  EXPECT_EQ(ticket(none, none, "a.pdf").heading(), "a.pdf");
  EXPECT_EQ(ticket("", "", "a.pdf").heading(), "a.pdf");
  EXPECT_EQ(ticket("", none, "").heading(), "Untitled file");
  EXPECT_EQ(ticket(none, none, none).heading(), "Untitled file");
  EXPECT_EQ(ticket("", "", none).heading(), "Untitled file");
  EXPECT_EQ(ticket(" ", "Cover", none).heading(), "Cover") << "blanks are no name";
}

TEST(RefOfARole, IsTheFirstThatMatches) {
  const auto full = decoded<FileItem>(
      R"({"id":"f","status":"s","refs":[{"role":"supplier","name":"a"},{"role":"submitted",
          "name":"b"},{"role":"submitted","name":"c"}]})");
  ASSERT_TRUE(full.ref("submitted"));
  EXPECT_EQ(full.ref("submitted")->name, "b");
  EXPECT_EQ(full.ref("supplier"), &full.refs->front());
  EXPECT_EQ(full.ref("third"), nullptr);
  EXPECT_EQ(full.ref(""), nullptr);
  EXPECT_EQ(ticket(none, none, none).ref("submitted"), nullptr) << "there are no refs";
  EXPECT_EQ(decoded<FileItem>(R"({"id":"f","status":"s","refs":[]})").ref("supplier"), nullptr);
}

Page page(Int i, Text label) {
  Page made;
  made.i = i;
  made.label = std::move(label);
  return made;
}

TEST(PageName, IsItsLabelOrItsNumberFromOne) {
  EXPECT_EQ(page(0, "").name(), "1");
  EXPECT_EQ(page(0, none).name(), "1");
  EXPECT_EQ(page(41, none).name(), "42");
  EXPECT_EQ(page(41, "xlii").name(), "xlii");
  EXPECT_EQ(page(-1, none).name(), "0");
  EXPECT_EQ(page(-5, none).name(), "-4");
  EXPECT_EQ(page(std::numeric_limits<Int>::min(), none).name(), "-9223372036854775807");
  EXPECT_EQ(page(std::numeric_limits<Int>::max(), none).name(), "9223372036854775808");
}

struct AspectCase {
  std::optional<std::vector<double>> px;
  std::optional<double> w;
  std::optional<double> h;
  double aspect;
};

TEST(PageAspect, FallsFromPixelsToPointsToTheAssumedShape) {
  const std::vector<AspectCase> cases = {
      {{{300, 400}}, 8, 10, 0.75},
      {{{300, 400}}, none, none, 0.75},
      {{{0, 400}}, 8, 10, 0},
      {{{100, 0}}, 8, 10, 0.8},
      {{{100, -1}}, 8, 10, 0.8},
      {{{100, 200, 3}}, 8, 10, 0.8},
      {{{100}}, 8, 10, 0.8},
      {{std::vector<double>{}}, 8, 10, 0.8},
      {none, 8, 10, 0.8},
      {none, 8, none, 0.77},
      {none, none, 10, 0.77},
      {none, none, none, 0.77},
      {none, 8, 0, 0.77},
      {none, 8, -10, 0.77},
      {none, 0, 10, 0},
      {{{100, 0}}, none, none, 0.77},
      {{{100, 0}}, 8, 0, 0.77},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    Page made;
    made.px = cases[i].px;
    made.w = cases[i].w;
    made.h = cases[i].h;
    EXPECT_EQ(made.aspect(), cases[i].aspect) << "case " << i;
  }
}

TEST(FirstName, IsTheFirstWordOfAName) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Ann Lee", "Ann"},
      {"Ann", "Ann"},
      {"  Ann   Lee ", "Ann"},
      {"Ann ", "Ann"},
      {"", ""},
      {"   ", "   "},
      {"Ann-Marie Lee", "Ann-Marie"},
      {"\u00c9l\u00e9onore d'Arc", "\u00c9l\u00e9onore"},
  };
  for (const auto& [name, first] : cases) {
    EXPECT_EQ((Me{.email = "e", .name = name}).firstName(), first);
    Person person;
    person.name = name;
    EXPECT_EQ(person.firstName(), first);
  }
}

TEST(ShownName, IsTheNameOrTheStartOfTheAddress) {
  EXPECT_EQ((Guest{.email = "kay@y.example", .name = "Kay Low"}).shownName(), "Kay Low");
  EXPECT_EQ((Guest{.email = "kay@y.example", .name = ""}).shownName(), "kay");
  EXPECT_EQ((Guest{.email = "kay@y.example", .name = none}).shownName(), "kay");
  EXPECT_EQ((Guest{.email = "kay@y@z", .name = none}).shownName(), "kay");
  EXPECT_EQ((Guest{.email = "kay", .name = none}).shownName(), "kay");
  EXPECT_EQ((Guest{.email = "@y", .name = none}).shownName(), "");
}

TEST(Areas, AreAboveTheThresholdInBothDirections) {
  EXPECT_TRUE(isArea(0.0041, 0.0041));
  EXPECT_FALSE(isArea(0.004, 0.5));
  EXPECT_FALSE(isArea(0.5, 0.004));
  EXPECT_FALSE(isArea(0.003, 0.003));
  EXPECT_FALSE(isArea(0, 0));
}

TEST(VersionNumbers, ComeFromTheDetailThenTheTicketThenAreTheFirst) {
  FileDetail detail;
  EXPECT_EQ(detail.versionNumber(), 1);
  detail.file.version = 2;
  EXPECT_EQ(detail.file.versionNumber(), 2);
  EXPECT_EQ(detail.versionNumber(), 2);
  detail.version = 3;
  EXPECT_EQ(detail.versionNumber(), 3);
}

TEST(AJob, IsActiveWhileQueuedOrRunning) {
  const auto active = [](const std::string& status) {
    return Job{.id = "j", .kind = "sync", .status = status}.active();
  };
  EXPECT_TRUE(active("queued"));
  EXPECT_TRUE(active("running"));
  for (const auto* ended : {"done", "failed", "", "Running", "canceled"})
    EXPECT_FALSE(active(ended));
}

TEST(ANote, IsResolvedByAnyNumberButZero) {
  const auto resolved = [](std::optional<Int> number) {
    Note note;
    note.resolved = number;
    return note.isResolved();
  };
  EXPECT_FALSE(resolved(none));
  EXPECT_FALSE(resolved(0));
  EXPECT_TRUE(resolved(1));
  EXPECT_TRUE(resolved(-1));
  EXPECT_TRUE(resolved(1700000000000));
}

TEST(ADraft, NeverGoesOverTheWire) { static_assert(!Described<DraftNote>); }

}  // namespace
}  // namespace vellix::test
