// A report in a real folder: what is in its way there, and what it leaves.
#include "platform/qt/ArrivingReport.hpp"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <memory>

#include "platform/WithoutCalls.hpp"
#include "platform/reports.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

using Place = ReportFolder::Place;
using Written = ReportFolder::Written;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kName = "Title.pdf";

class ArrivingReportTest : public ReportsTest {
 protected:
  std::unique_ptr<ArrivingReport> arrived(const std::string& bytes) const {
    auto report = std::make_unique<ArrivingReport>(folder().string());
    EXPECT_TRUE(report->append(bytes));
    EXPECT_TRUE(report->finish());
    return report;
  }
};

TEST_F(ArrivingReportTest, GetsItsNameInOneStep) {
  for (const std::size_t size : {0U, 1U, 65'536U, 65'537U, 3'000'000U}) {
    const std::string bytes = someReport(size);
    ArrivingReport report(folder().string());
    EXPECT_THAT(all(), IsEmpty());
    for (std::size_t from = 0; from < size; from += 100'000) {
      ASSERT_TRUE(report.append(std::string_view(bytes).substr(from, 100'000)));
      EXPECT_THAT(all(), ElementsAre(StartsWith("."))) << "hidden until it is whole";
    }
    ASSERT_TRUE(report.finish());
    EXPECT_EQ(report.look(kName), Place::free);
    EXPECT_EQ(report.write(kName), Written::whole);
    EXPECT_THAT(all(), ElementsAre(kName));
    EXPECT_EQ(bytesOf(kName), bytes);
    fs::remove(at(kName));
  }
}

TEST_F(ArrivingReportTest, IsAFileLikeThoseThatOthersMake) {
  const mode_t before = ::umask(027);
  EXPECT_EQ(arrived("pdf")->write(kName), Written::whole);
  ::umask(before);
  EXPECT_EQ(fs::status(at(kName)).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(ArrivingReportTest, TakesTheLongestName) {
  const std::string longest = std::string(251, 'n') + ".pdf";
  const auto report = arrived("pdf");
  EXPECT_EQ(report->look(longest), Place::free);
  EXPECT_EQ(report->write(longest), Written::whole);
  EXPECT_THAT(all(), ElementsAre(longest));
  const auto other = arrived("other");
  EXPECT_EQ(other->look(longest), Place::taken);
  EXPECT_EQ(other->look('n' + longest), Place::taken);
  EXPECT_EQ(other->write('n' + longest), Written::failed);
}

struct InTheWay {
  const char* name;
  std::function<void(const fs::path&)> make;
  Place place;
};
BOOST_DESCRIBE_STRUCT(InTheWay, (), (name))

class SomethingInTheWay : public ArrivingReportTest, public testing::WithParamInterface<InTheWay> {
 protected:
  static inline const std::string kReport = someReport(200'000);
};

void write(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}
std::string changed(std::string bytes, std::size_t at) {
  bytes[at] = static_cast<char>(bytes[at] ^ 1);
  return bytes;
}

TEST_P(SomethingInTheWay, IsToldAndNeverReplaced) {
  GetParam().make(at(kName));
  const auto before = fs::symlink_status(at(kName));
  const auto names = all();
  {
    const auto report = arrived(kReport);
    EXPECT_EQ(report->look(kName), GetParam().place);
    EXPECT_EQ(report->write(kName), Written::taken);
    EXPECT_EQ(report->look(kName), GetParam().place);
    EXPECT_EQ(report->write("Title 2.pdf"), Written::whole) << "the next one is still to be had";
  }
  EXPECT_EQ(bytesOf("Title 2.pdf"), kReport);
  fs::remove(at("Title 2.pdf"));
  EXPECT_EQ(all(), names);
  EXPECT_EQ(fs::symlink_status(at(kName)).type(), before.type());
  EXPECT_EQ(fs::symlink_status(at(kName)).permissions(), before.permissions());
}

TEST_P(SomethingInTheWay, IsNotReplacedWhereFilesHaveNoSecondName) {
  GetParam().make(at(kName));
  const auto names = all();
  const auto report = arrived(kReport);
  Written written = Written::failed;
  ASSERT_TRUE(withoutCalls({SYS_linkat, SYS_link}, EPERM, [&] { written = report->write(kName); }));
  EXPECT_EQ(written, Written::taken);
  report->drop();
  EXPECT_EQ(all(), names);
}

// NOLINTBEGIN(cert-err58-cpp): what fails here fails the test.
INSTANTIATE_TEST_SUITE_P(
    , SomethingInTheWay,
    testing::Values(
        InTheWay{"theSame", [](const fs::path& path) { write(path, someReport(200'000)); },
                 Place::same},
        InTheWay{"aLinkToTheSame",
                 [](const fs::path& path) {
                   write(path.parent_path() / "elsewhere", someReport(200'000));
                   fs::create_symlink("elsewhere", path);
                 },
                 Place::same},
        InTheWay{"anotherFromItsFirstByte",
                 [](const fs::path& path) { write(path, changed(someReport(200'000), 0)); },
                 Place::taken},
        InTheWay{"anotherInItsLastByte",
                 [](const fs::path& path) { write(path, changed(someReport(200'000), 199'999)); },
                 Place::taken},
        InTheWay{"aShorterOne", [](const fs::path& path) { write(path, someReport(199'999)); },
                 Place::taken},
        InTheWay{"aLongerOne", [](const fs::path& path) { write(path, someReport(200'001)); },
                 Place::taken},
        InTheWay{"anEmptyOne", [](const fs::path& path) { write(path, ""); }, Place::taken},
        InTheWay{"aLinkToAnother",
                 [](const fs::path& path) {
                   write(path.parent_path() / "elsewhere", "mine");
                   fs::create_symlink("elsewhere", path);
                 },
                 Place::taken},
        InTheWay{"aFolder", [](const fs::path& path) { fs::create_directory(path); }, Place::taken},
        InTheWay{"aLinkToAFolder",
                 [](const fs::path& path) { fs::create_directory_symlink("/", path); },
                 Place::taken},
        InTheWay{"aLinkToNowhere",
                 [](const fs::path& path) { fs::create_symlink("nowhere", path); }, Place::taken},
        InTheWay{"aCircle", [](const fs::path& path) { fs::create_symlink(path, path); },
                 Place::taken},
        InTheWay{"aPipe", [](const fs::path& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); },
                 Place::taken},
        InTheWay{"aLinkToADevice",
                 [](const fs::path& path) { fs::create_symlink("/dev/zero", path); },
                 Place::taken}),
    [](const auto& tested) { return tested.param.name; });
// NOLINTEND(cert-err58-cpp)

TEST_F(ArrivingReportTest, IsNotTheSameAsWhatCannotBeRead) {
  // As empty as the report, as far as is told of it.
  fs::create_symlink("/proc/self/mem", at(kName));
  EXPECT_EQ(arrived("")->look(kName), Place::taken);
  put("secret.pdf", "pdf");
  fs::permissions(at("secret.pdf"), fs::perms::none);
  if (::access(at("secret.pdf").c_str(), R_OK) == 0) return;  // this user may read everything
  EXPECT_EQ(arrived("pdf")->look("secret.pdf"), Place::taken);
}

TEST_F(ArrivingReportTest, GoesOnlyUnderASingleName) {
  const auto report = arrived("pdf");
  put("there", "x");
  for (const std::string& name :
       {std::string("../out.pdf"), std::string("there/in.pdf"), std::string("/tmp/out.pdf"),
        std::string("."), std::string(".."), std::string(), std::string("a\0b", 3)}) {
    EXPECT_EQ(report->look(name), Place::taken) << name;
    EXPECT_EQ(report->write(name), Written::failed) << name;
  }
  EXPECT_FALSE(fs::exists(root() / "out.pdf"));
}

TEST_F(ArrivingReportTest, OfTwoAtOnceOneIsFaster) {
  const auto one = arrived("one");
  const auto other = arrived("other");
  const auto twin = arrived("one");
  EXPECT_EQ(one->look(kName), Place::free);
  EXPECT_EQ(other->look(kName), Place::free);
  EXPECT_EQ(one->write(kName), Written::whole);
  EXPECT_EQ(other->write(kName), Written::taken);
  EXPECT_EQ(other->look(kName), Place::taken);
  EXPECT_EQ(twin->look(kName), Place::same);
  EXPECT_EQ(bytesOf(kName), "one");
}

TEST_F(ArrivingReportTest, IsWrittenWhereFilesHaveNoSecondName) {
  for (const int error : {EPERM, ENOTSUP, EOPNOTSUPP, EMLINK, ENOSYS}) {
    const auto report = arrived("pdf");
    Written written = Written::failed;
    ASSERT_TRUE(
        withoutCalls({SYS_linkat, SYS_link}, error, [&] { written = report->write(kName); }));
    EXPECT_EQ(written, Written::whole) << error;
    EXPECT_THAT(all(), ElementsAre(kName)) << error;
    EXPECT_EQ(bytesOf(kName), "pdf") << error;
    fs::remove(at(kName));
  }
}

TEST_F(ArrivingReportTest, LeavesNoEmptyFileWhereItCannotBePutInItsPlace) {
  const auto report = arrived("pdf");
  Written written = Written::whole;
  ASSERT_TRUE(withoutCalls({SYS_linkat, SYS_link, SYS_rename, SYS_renameat, SYS_renameat2}, EPERM,
                           [&] { written = report->write(kName); }));
  EXPECT_EQ(written, Written::failed);
  report->drop();
  EXPECT_THAT(all(), IsEmpty());
}

TEST_F(ArrivingReportTest, IsNotWrittenWhereTheDiskFails) {
  for (const int error : {EIO, ENOSPC, EROFS, EDQUOT, EACCES}) {
    const auto report = arrived("pdf");
    Written written = Written::whole;
    ASSERT_TRUE(
        withoutCalls({SYS_linkat, SYS_link}, error, [&] { written = report->write(kName); }));
    EXPECT_EQ(written, Written::failed) << error;
    report->drop();
    EXPECT_THAT(all(), IsEmpty()) << error;
  }
}

TEST_F(ArrivingReportTest, ThatIsNotOnTheDiskIsNotWhole) {
  ArrivingReport report(folder().string());
  ASSERT_TRUE(report.append("pdf"));
  bool whole = true;
  ASSERT_TRUE(withoutCalls({SYS_fsync}, EIO, [&] { whole = report.finish(); }));
  EXPECT_FALSE(whole);
  EXPECT_EQ(report.look(kName), Place::taken);
  EXPECT_EQ(report.write(kName), Written::failed);
}

TEST_F(ArrivingReportTest, OnAFullDiskIsNeverWhole) {
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit full{1'000'000, before.rlim_max};
  {
    ArrivingReport report(folder().string());
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    const bool first = report.append(std::string(900'000, 'x'));
    const bool more = report.append(std::string(900'000, 'x'));
    const bool late = report.append("x");
    const bool whole = report.finish();
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_TRUE(first);
    EXPECT_FALSE(more);
    EXPECT_FALSE(late);
    EXPECT_FALSE(whole);
    EXPECT_FALSE(report.append("x")) << "even when there is room again";
    EXPECT_FALSE(report.finish());
    EXPECT_EQ(report.write(kName), Written::failed);
  }
  EXPECT_THAT(all(), IsEmpty());
}

TEST_F(ArrivingReportTest, NeedsAFolder) {
  std::ofstream(root() / "file") << "x";
  fs::create_symlink("nowhere", root() / "torn");
  for (const std::string& path :
       {(root() / "file").string(), (root() / "file" / "below").string(),
        (root() / "no" / "folder").string(), (root() / "torn").string(), std::string("/proc"),
        std::string(), (root() / "nul").string() + std::string("\0x", 2)}) {
    ArrivingReport report(path);
    EXPECT_FALSE(report.append("pdf")) << path;
    EXPECT_FALSE(report.finish()) << path;
    EXPECT_FALSE(ArrivingReport(path).finish()) << path << ", also when it is empty";
  }
  EXPECT_FALSE(fs::exists(root() / "nowhere"));
  EXPECT_FALSE(fs::exists(root() / "no"));
  EXPECT_FALSE(fs::exists(root() / "nul"));
}

TEST_F(ArrivingReportTest, MakesTheFolderThatNobodyHasMadeYet) {
  fs::remove(folder());
  EXPECT_EQ(arrived("pdf")->write(kName), Written::whole);
  EXPECT_EQ(bytesOf(kName), "pdf");
}

TEST_F(ArrivingReportTest, LeavesNothingOfWhatIsNotWritten) {
  {
    ArrivingReport report(folder().string());
    ASSERT_TRUE(report.append("half of"));
    ASSERT_FALSE(all().empty());
  }
  EXPECT_THAT(all(), IsEmpty());
  {
    ArrivingReport report(folder().string());
    ASSERT_TRUE(report.append("half of"));
    report.drop();
    EXPECT_THAT(all(), IsEmpty());
    EXPECT_FALSE(report.append("it"));
    EXPECT_FALSE(report.finish());
    EXPECT_EQ(report.write(kName), Written::failed);
  }
  {
    ArrivingReport report(folder().string());
    report.drop();
    EXPECT_FALSE(report.append("all of it"));
  }
  EXPECT_THAT(all(), IsEmpty());
  const auto report = arrived("pdf");
  EXPECT_EQ(report->write(kName), Written::whole);
  report->drop();
  EXPECT_THAT(all(), ElementsAre(kName)) << "what has a name is the person's";
}

TEST_F(ArrivingReportTest, LeavesNothingInAFolderThatWasMovedEither) {
  {
    ArrivingReport report(folder().string());
    ASSERT_TRUE(report.append("half"));
    fs::rename(folder(), root() / "Moved");
    fs::create_directory(folder());
  }
  EXPECT_TRUE(fs::is_empty(root() / "Moved"));
}

TEST_F(ArrivingReportTest, HasAUrlOfItsBytes) {
  struct Row {
    std::string folder;
    std::string name;
    std::string url;
  };
  const Row rows[] = {
      {"/home/renny/Downloads", "Title.pdf", "file:///home/renny/Downloads/Title.pdf"},
      {"/home/renny/Two words", "A & B #1?.pdf",
       "file:///home/renny/Two%20words/A%20%26%20B%20%231%3F.pdf"},
      {"/d", "100%.pdf", "file:///d/100%25.pdf"},
      {"/d", "燈台.pdf", "file:///d/%E7%87%88%E5%8F%B0.pdf"},
      {"/\xff\xfe", "a\nb.pdf", "file:///%FF%FE/a%0Ab.pdf"},
  };
  for (const auto& row : rows) EXPECT_EQ(ArrivingReport(row.folder).urlOf(row.name), row.url);
}

}  // namespace
}  // namespace vellix
