// The names that reports get.
#include "store/report_file.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <set>

#include "records/described.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Names = std::vector<std::string>;

struct NameCase {
  const char* name;
  std::optional<std::string> title;
  int n;
  std::string file;
};
BOOST_DESCRIBE_STRUCT(NameCase, (), (name, title, n, file))

class ReportFileNames : public testing::TestWithParam<NameCase> {};

TEST_P(ReportFileNames, FollowTheTitle) {
  EXPECT_EQ(reportFileName(GetParam().title, GetParam().n), GetParam().file);
}

NameCase title(const char* name, std::string given, std::string file) {
  return {name, std::move(given), 1, std::move(file)};
}
NameCase untitled(const char* name, std::string given) {
  return {name, std::move(given), 1, "Vellix report.pdf"};
}

INSTANTIATE_TEST_SUITE_P(
    Titles, ReportFileNames,
    testing::Values(title("Plain", "Carto, cover", "Carto, cover.pdf"),
                    NameCase{"Absent", std::nullopt, 1, "Vellix report.pdf"},
                    NameCase{"AbsentAgain", std::nullopt, 2, "Vellix report 2.pdf"},
                    untitled("Empty", ""), untitled("Blanks", " \t\xc2\xa0 "),
                    NameCase{"Second", "Title", 2, "Title 2.pdf"},
                    NameCase{"Thousandth", "Title", 1000, "Title 1000.pdf"},
                    title("WithTheEnding", "Title.pdf", "Title.pdf.pdf"),
                    NameCase{"WithTheEndingAgain", "Title.pdf", 2, "Title.pdf 2.pdf"},
                    title("OtherScripts", "Bród • 校正 🗺️", "Bród • 校正 🗺️.pdf"),
                    // What holds the letters of some scripts and pictures together is no danger.
                    title("Joined", "می\u200cخواهم 👩\u200d🎨", "می\u200cخواهم 👩\u200d🎨.pdf")),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Separators, ReportFileNames,
    testing::Values(title("One", "A/B", "A-B.pdf"), title("Several", "A/B/C", "A-B-C.pdf"),
                    title("First", "/etc/passwd", "-etc-passwd.pdf"), title("Last", "A/", "A-.pdf"),
                    title("Alone", "///", "---.pdf"), title("Back", "A\\B", "A-B.pdf"),
                    title("Upwards", "../../A", "-..-A.pdf"),
                    title("UpwardsWithin", "A/../B", "A-..-B.pdf")),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Dots, ReportFileNames,
    testing::Values(title("Hidden", ".A", "A.pdf"), title("Two", "..A", "A.pdf"),
                    title("BehindBlanks", " . .A", "A.pdf"), title("Within", "A..B", "A..B.pdf"),
                    title("Last", "A.", "A..pdf"), untitled("One", "."), untitled("Parent", ".."),
                    untitled("Many", "....."), untitled("Apart", ". . ."),
                    title("BehindAMark", "\u202e.A", "A.pdf"),
                    title("BehindAControl", "\x01.A", "A.pdf")),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Unseen, ReportFileNames,
    testing::Values(title("LineEnd", "A\nB", "A B.pdf"), title("Tab", "A\tB", "A B.pdf"),
                    title("Null", std::string{"A\0B", 3}, "A B.pdf"),
                    title("Escape", "A\x1b[31mB", "A [31mB.pdf"), title("Delete", "A\x7f", "A.pdf"),
                    title("NextLine", "A\u0085B", "A B.pdf"),
                    title("LineSeparator", "A\u2028B", "A B.pdf"),
                    title("ParagraphSeparator", "A\u2029B", "A B.pdf"),
                    title("Outside", "\nA\n", "A.pdf"), untitled("ControlsAlone", "\x01\x02\n"),
                    title("Override", "A\u202efdp.exe", "Afdp.exe.pdf"),
                    title("Embedding", "\u202aA\u202bB\u202c\u202d", "AB.pdf"),
                    title("Isolates", "\u2066A\u2067B\u2068C\u2069", "ABC.pdf"),
                    title("Marks", "\u200eA\u200fB\u061c", "AB.pdf"),
                    untitled("NothingToSeeBehindADot", ".\u200b"),
                    untitled("MarksAlone", "\u202e\u2066\u200f"),
                    untitled("NothingToSee", "\u200b\ufeff\u2060"),
                    title("Broken", "A\xff\xc3", "A.pdf"), untitled("BrokenAlone", "\xff\xfe")),
    [](const auto& each) { return each.param.name; });

std::string times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// The name has 255 bytes at most: 251 of the title, and fewer with a number.
INSTANTIATE_TEST_SUITE_P(
    Long, ReportFileNames,
    testing::Values(
        title("Fitting", times(251, "a"), times(251, "a") + ".pdf"),
        title("OneTooMany", times(252, "a"), times(251, "a") + ".pdf"),
        NameCase{"WithANumber", times(300, "a"), 2, times(249, "a") + " 2.pdf"},
        NameCase{"WithALongNumber", times(300, "a"), 1000, times(246, "a") + " 1000.pdf"},
        title("OfTwoBytes", times(150, "ß"), times(125, "ß") + ".pdf"),
        title("OfThreeBytes", times(100, "校"), times(83, "校") + ".pdf"),
        title("OfFourBytes", times(75, "🗺"), times(62, "🗺") + ".pdf"),
        NameCase{"OfFourBytesWithANumber", times(75, "🗺"), 10, times(62, "🗺") + " 10.pdf"},
        title("CutAtABlank", times(250, "a") + " b", times(250, "a") + ".pdf"),
        title("OfSeparators", times(300, "/"), times(251, "-") + ".pdf"),
        untitled("OfDots", times(300, ".")), untitled("OfMarks", times(100, "\u202e")),
        title("OfAMegabyte", times(1'000'000, "a"), times(251, "a") + ".pdf")),
    [](const auto& each) { return each.param.name; });

// A folder as it is found.
class FakeFolder : public ReportFolder {
 public:
  Place look(const std::string& name) override {
    looked.push_back(name);
    const auto found = places.find(name);
    return found == places.end() ? otherwise : found->second;
  }
  Written write(const std::string& name) override {
    written.push_back(name);
    return writing(name);
  }

  std::map<std::string, Place> places;
  Place otherwise = Place::free;
  std::function<Written(const std::string&)> writing = [](const std::string&) {
    return Written::whole;
  };
  Names looked;
  Names written;
};

using Place = ReportFolder::Place;
using Written = ReportFolder::Written;

struct KeptCase {
  const char* name;
  std::map<std::string, Place> places;
  const char* kept;
  Names written;
};
BOOST_DESCRIBE_STRUCT(KeptCase, (), (name, kept, written))

class KeptReports : public testing::TestWithParam<KeptCase> {};

TEST_P(KeptReports, GetTheFirstNameThatWillDo) {
  FakeFolder folder;
  folder.places = GetParam().places;
  EXPECT_EQ(keepReport("Title", folder), GetParam().kept);
  EXPECT_EQ(folder.written, GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    All, KeptReports,
    testing::Values(KeptCase{"EmptyFolder", {}, "Title.pdf", {"Title.pdf"}},
                    KeptCase{"Same", {{"Title.pdf", Place::same}}, "Title.pdf", {}},
                    KeptCase{
                        "Taken", {{"Title.pdf", Place::taken}}, "Title 2.pdf", {"Title 2.pdf"}},
                    KeptCase{"TwoTaken",
                             {{"Title.pdf", Place::taken}, {"Title 2.pdf", Place::taken}},
                             "Title 3.pdf",
                             {"Title 3.pdf"}},
                    KeptCase{"SecondIsTheSame",
                             {{"Title.pdf", Place::taken}, {"Title 2.pdf", Place::same}},
                             "Title 2.pdf",
                             {}},
                    // Looking ends at the first that is free.
                    KeptCase{"SameBehindAGap",
                             {{"Title.pdf", Place::taken}, {"Title 3.pdf", Place::same}},
                             "Title 2.pdf",
                             {"Title 2.pdf"}}),
    [](const auto& each) { return each.param.name; });

TEST(KeptReport, IsNotKeptWhenItCannotBeWritten) {
  FakeFolder folder;
  folder.writing = [](const std::string&) { return Written::failed; };
  EXPECT_EQ(keepReport("Title", folder), std::nullopt);
  EXPECT_THAT(folder.written, ElementsAre("Title.pdf")) << "tried once";
}

TEST(KeptReport, GoesOnWhenSomebodyWasFaster) {
  FakeFolder folder;
  folder.writing = [&](const std::string& name) {
    if (name != "Title.pdf") return Written::whole;
    folder.places[name] = Place::taken;
    return Written::taken;
  };
  EXPECT_EQ(keepReport("Title", folder), "Title 2.pdf");
  EXPECT_THAT(folder.written, ElementsAre("Title.pdf", "Title 2.pdf"));
}

TEST(KeptReport, TakesTheSameReportOfWhoWasFaster) {
  FakeFolder folder;
  folder.writing = [&](const std::string& name) {
    folder.places[name] = Place::same;
    return Written::taken;
  };
  EXPECT_EQ(keepReport("Title", folder), "Title.pdf");
  EXPECT_THAT(folder.written, ElementsAre("Title.pdf"));
}

TEST(KeptReport, GivesUpWhenTooManyNamesAreTaken) {
  FakeFolder folder;
  folder.otherwise = Place::taken;
  EXPECT_EQ(keepReport("Title", folder), std::nullopt);
  EXPECT_THAT(folder.looked, SizeIs(kMostReportNames));
  EXPECT_EQ(folder.looked.back(), "Title 1000.pdf");
  EXPECT_THAT(folder.written, IsEmpty());
  folder.places["Title 1000.pdf"] = Place::free;
  EXPECT_EQ(keepReport("Title", folder), "Title 1000.pdf") << "the last one tried";
}

TEST(KeptReport, GivesUpWhenSomebodyIsAlwaysFaster) {
  FakeFolder folder;
  folder.writing = [](const std::string&) { return Written::taken; };
  EXPECT_EQ(keepReport("Title", folder), std::nullopt);
  EXPECT_THAT(folder.written, SizeIs(kMostReportNames));
}

TEST(KeptReport, TriesADifferentNameEachTimeHoweverLongTheTitle) {
  FakeFolder folder;
  folder.otherwise = Place::taken;
  keepReport(times(300, "校"), folder);
  EXPECT_THAT(std::set<std::string>(folder.looked.begin(), folder.looked.end()),
              SizeIs(kMostReportNames));
  for (const std::string& name : folder.looked) EXPECT_LE(name.size(), 255U);
}

TEST(KeptReport, StaysInItsFolder) {
  FakeFolder folder;
  for (const char* title : {"..", "../x", "/x", "a/../../x", ".", ""}) keepReport(title, folder);
  for (const std::string& name : folder.written) {
    EXPECT_EQ(name.find('/'), std::string::npos) << name;
    EXPECT_FALSE(name.starts_with('.')) << name;
  }
  EXPECT_THAT(folder.written, SizeIs(6));
}

}  // namespace
}  // namespace vellix
