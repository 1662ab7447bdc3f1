// The sample that the demo writes is whole: every picture that it speaks of lies beside it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "records/json.hpp"
#include "records/sample.hpp"
#include "shell/staging.hpp"

namespace vellix::demo_tests {
namespace {

namespace fs = std::filesystem;

class SampleFolder {
 public:
  SampleFolder() {
    std::string pattern = (fs::temp_directory_path() / "vellix-sample-XXXXXX").string();
    path = ::mkdtemp(pattern.data());
  }
  ~SampleFolder() { fs::remove_all(path); }

  // The exit code of a demo service that writes its sample into a folder.
  static int write(const fs::path& into) {
    const pid_t child = fork();
    if (child == 0) {
      execl(DEMO_SERVICE, DEMO_SERVICE, "--write-sample", into.c_str(), nullptr);
      _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  fs::path path;
};

void note(std::set<std::string>& keys, const std::optional<std::string>& key) {
  if (key) keys.insert(*key);
}

void noteFile(std::set<std::string>& keys, const FileItem& file) {
  note(keys, file.thumb);
  for (const Page& page : file.pages.value_or(std::vector<Page>{})) {
    note(keys, page.img);
    note(keys, page.thumb);
    for (const auto& [role, ref] : page.refs.value_or(std::map<std::string, RefPage>{})) {
      note(keys, ref.img);
    }
  }
}

TEST(SampleWriter, WritesTheBoardWithEveryDetailAndPicture) {
  const SampleFolder folder;
  ASSERT_EQ(SampleFolder::write(folder.path), 0);

  std::stringstream json;
  json << std::ifstream(folder.path / "sample.json").rdbuf();
  const auto sample = decode<Sample>(json.str());
  ASSERT_TRUE(sample) << sample.error().where << ' ' << sample.error().why;

  std::set<std::string> there;
  for (const auto& entry : fs::directory_iterator(folder.path)) {
    if (entry.path().filename() == "sample.json") continue;
    const auto key = sampleKey(entry.path().filename().string());
    ASSERT_TRUE(key) << entry.path();
    EXPECT_GT(entry.file_size(), 100U) << entry.path();
    there.insert(*key);
  }
  std::set<std::string> meant;
  for (const auto& person : sample->board.users) note(meant, person.photo);
  for (const auto& file : sample->board.files) {
    EXPECT_TRUE(sample->details.contains(file.id)) << file.id;
    noteFile(meant, file);
  }
  for (const auto& [id, detail] : sample->details) noteFile(meant, detail.file);
  EXPECT_GT(sample->board.files.size(), 10U);
  EXPECT_GT(meant.size(), 200U);
  for (const auto& key : meant) EXPECT_TRUE(there.contains(key)) << key;
}

TEST(SampleWriter, FailsWhereThereIsNoFolder) {
  const SampleFolder folder;
  EXPECT_EQ(SampleFolder::write(folder.path / "nowhere"), 1);
}

}  // namespace
}  // namespace vellix::demo_tests
