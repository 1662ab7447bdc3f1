// Files that are read as they were when they were opened.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "platform/qt/QtLocalFiles.hpp"
#include "platform/waiting.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;
using File = std::shared_ptr<HttpBody>;

class LocalFile : public testing::Test {
 protected:
  static constexpr std::size_t kPiece = 1'000;

  void SetUp() override { fs::create_directory(at("")); }
  fs::path at(const std::string& name) const {
    return fs::path(folder_.path().toStdString()) / "proofs" / name;
  }
  fs::path write(const std::string& name, const std::string& bytes) const {
    std::ofstream(at(name), std::ios::binary) << bytes;
    return at(name);
  }
  File open(const fs::path& path) {
    const auto pending = files_.open(path.string());
    EXPECT_FALSE(pending.resolved()) << "only in a later turn";
    return await(pending).value_or(nullptr);
  }
  static std::optional<std::string> readPiece(HttpBody& file, std::size_t most = kPiece) {
    std::string bytes(most, '?');
    const auto count = file.read(bytes.data(), most);
    if (!count) return std::nullopt;
    bytes.resize(*count);
    return bytes;
  }
  static std::string readAll(HttpBody& file) {
    std::string all;
    while (static_cast<std::int64_t>(all.size()) < file.size()) {
      const auto piece = readPiece(file);
      if (!piece || piece->empty()) break;
      all += *piece;
    }
    return all;
  }

  QTemporaryDir folder_;
  QtLocalFiles files_;
};

std::string someBytes(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(i * i % 251);
  return bytes;
}

TEST_F(LocalFile, IsReadToItsEndAsItIs) {
  for (const std::size_t count : {0U, 1U, 999U, 1000U, 1001U, 100'000U}) {
    const std::string bytes = someBytes(count);
    const File file = open(write("proof.pdf", bytes));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), static_cast<std::int64_t>(count));
    EXPECT_EQ(readAll(*file), bytes);
  }
}

TEST_F(LocalFile, MayHaveAnyName) {
  for (const char* name : {"two words.pdf", "燈台.pdf", "a\nb.pdf", "\xff\xfe.pdf", "-rf"}) {
    const File file = open(write(name, "pdf"));
    ASSERT_TRUE(file) << name;
    EXPECT_EQ(readAll(*file), "pdf");
    fs::remove(at(name));
  }
}

TEST_F(LocalFile, MayBeReachedThroughALink) {
  write("proof.pdf", "pdf");
  fs::create_symlink("proof.pdf", at("link.pdf"));
  const File file = open(at("link.pdf"));
  ASSERT_TRUE(file);
  EXPECT_EQ(readAll(*file), "pdf");
}

TEST_F(LocalFile, IsNoneWhereThereIsNoFileToRead) {
  fs::create_directory(at("folder"));
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  fs::create_symlink("nowhere", at("torn"));
  fs::create_symlink("circle", at("circle"));
  write("plain", "x");
  for (const char* name :
       {"missing", "folder", "pipe", "torn", "circle", "plain/below", "no/folder"}) {
    EXPECT_FALSE(open(at(name))) << name;
  }
  EXPECT_FALSE(open("/dev/zero"));
  EXPECT_FALSE(open(""));
  EXPECT_FALSE(open(at("plain").string() + std::string("\0x", 2)));
}

TEST_F(LocalFile, IsNoneForWhomItIsNot) {
  const auto path = write("secret.pdf", "pdf");
  fs::permissions(path, fs::perms::none);
  if (::access(path.c_str(), R_OK) == 0) GTEST_SKIP() << "this user may read everything";
  EXPECT_FALSE(open(path));
}

struct Meddling {
  const char* name;
  std::function<void(const fs::path&)> meddle;
};
BOOST_DESCRIBE_STRUCT(Meddling, (), (name))

class MeddledFiles : public LocalFile, public testing::WithParamInterface<Meddling> {};

TEST_P(MeddledFiles, GiveNothingMoreFromThenOn) {
  const auto path = write("proof.pdf", someBytes(3'500));
  const File file = open(path);
  ASSERT_TRUE(file);
  ASSERT_TRUE(readPiece(*file));
  ASSERT_TRUE(readPiece(*file));
  GetParam().meddle(path);
  EXPECT_FALSE(readPiece(*file));
  EXPECT_FALSE(readPiece(*file));
}

TEST_P(MeddledFiles, KeepTheirLastPieceToThemselves) {
  const auto path = write("proof.pdf", someBytes(2'500));
  const File file = open(path);
  ASSERT_TRUE(readPiece(*file));
  ASSERT_TRUE(readPiece(*file));
  GetParam().meddle(path);
  EXPECT_FALSE(readPiece(*file));
}

TEST_P(MeddledFiles, GiveNothingAtAllWhenItCameBeforeTheFirstByte) {
  const auto path = write("proof.pdf", someBytes(10));
  const File file = open(path);
  ASSERT_TRUE(file);
  GetParam().meddle(path);
  EXPECT_FALSE(readPiece(*file));
}

void overwrite(const fs::path& path, const std::string& bytes) {
  std::fstream(path, std::ios::binary | std::ios::in | std::ios::out) << bytes;
}

// A clock may be too coarse for what comes at once behind the opening.
void later(const fs::path& path) {
  const timespec now{::time(nullptr) + 10, 0};
  const std::array<timespec, 2> times{now, now};
  ::utimensat(AT_FDCWD, path.c_str(), times.data(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, MeddledFiles,
    testing::Values(Meddling{"WrittenTo",
                             [](const fs::path& path) {
                               overwrite(path, "other");
                               later(path);
                             }},
                    Meddling{"Touched", [](const fs::path& path) { later(path); }},
                    Meddling{"Cut", [](const fs::path& path) { fs::resize_file(path, 2); }},
                    Meddling{"Emptied", [](const fs::path& path) { fs::resize_file(path, 0); }},
                    Meddling{"Grown", [](const fs::path& path) { fs::resize_file(path, 9'000); }},
                    Meddling{"Replaced",
                             [](const fs::path& path) {
                               const auto other = path.parent_path() / "other";
                               fs::copy_file(path, other);
                               fs::rename(other, path);
                             }},
                    Meddling{"ReplacedByAFolder",
                             [](const fs::path& path) {
                               fs::remove(path);
                               fs::create_directory(path);
                             }},
                    Meddling{"Gone", [](const fs::path& path) { fs::remove(path); }},
                    Meddling{"MovedAway",
                             [](const fs::path& path) {
                               fs::rename(path, path.parent_path() / "moved");
                             }},
                    Meddling{"FolderGone",
                             [](const fs::path& path) {
                               const auto away = path.parent_path().string() + "-away";
                               fs::rename(path.parent_path(), away);
                               fs::remove_all(away);
                             }}),
    [](const auto& each) { return each.param.name; });

TEST_F(LocalFile, SeesAChangeThatHidesItsTime) {
  const auto path = write("proof.pdf", someBytes(2'500));
  struct stat before{};
  ASSERT_EQ(::stat(path.c_str(), &before), 0);
  const File file = open(path);
  ASSERT_TRUE(readPiece(*file));
  const std::array<timespec, 2> times{before.st_atim, before.st_mtim};
  // The clock that files are stamped by has steps.
  ASSERT_TRUE(waitUntil([&] {
    struct stat after{};
    overwrite(path, "other");
    ::utimensat(AT_FDCWD, path.c_str(), times.data(), 0);
    return ::stat(path.c_str(), &after) == 0 && after.st_ctim.tv_nsec != before.st_ctim.tv_nsec;
  }));
  EXPECT_FALSE(readPiece(*file));
}

TEST_F(LocalFile, IsLeftAsItWas) {
  const auto path = write("proof.pdf", someBytes(5'000));
  const auto then = fs::last_write_time(path);
  {
    const File file = open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(readAll(*file).size(), 5'000U);
  }
  EXPECT_EQ(fs::last_write_time(path), then);
  EXPECT_EQ(fs::file_size(path), 5'000U);
}

TEST_F(LocalFile, IsClosedWithItsLastReader) {
  const auto path = write("proof.pdf", "pdf");
  const auto isHeld = [&path] {
    std::error_code gone;
    const fs::directory_iterator all("/proc/self/fd");
    return std::any_of(begin(all), end(all), [&](const fs::directory_entry& each) {
      return fs::read_symlink(each.path(), gone) == path;
    });
  };
  File file = open(path);
  EXPECT_TRUE(isHeld());
  file.reset();
  EXPECT_TRUE(waitUntil([&] { return !isHeld(); }));
}

TEST(LocalFilesEnd, DoesNotWaitForWhatIsBeingOpened) {
  std::vector<Pending<File>> opening;
  {
    QtLocalFiles files;
    for (int i = 0; i < 20; ++i) opening.push_back(files.open("/proc/self/exe"));
  }
  QCoreApplication::processEvents();
  for (const auto& one : opening) EXPECT_FALSE(one.resolved());
}

}  // namespace
}  // namespace vellix
