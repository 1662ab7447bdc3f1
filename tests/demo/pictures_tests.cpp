// Pictures in memory and on the disk.
#include "pictures.hpp"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <semaphore>
#include <set>
#include <stdexcept>

#include "written_pdf.hpp"

namespace vellix::demo {
namespace {

namespace fs = std::filesystem;

class KeptPictures : public testing::Test {
 protected:
  std::string folder() const { return folder_.path().toStdString() + "/kept/pages"; }
  Pictures::Paint painting(const std::string& what) {
    return [this, what](const Demand&) {
      ++painted_;
      return PdfPicture{what, true};
    };
  }
  std::vector<fs::path> files() const {
    std::vector<fs::path> all;
    for (const auto& entry : fs::directory_iterator(folder())) all.push_back(entry.path());
    return all;
  }
  void waitForFiles(std::size_t count) {
    while (files().size() < count) std::this_thread::yield();
  }

  QTemporaryDir folder_;
  std::atomic<int> painted_ = 0;
};

TEST_F(KeptPictures, ArePaintedOnceForAllTimes) {
  for (int run = 0; run < 2; ++run) {
    Pictures pictures;
    ASSERT_TRUE(pictures.keepIn(folder()));
    pictures.addKept("pages/1", "one", painting("first"));
    pictures.addKept("pages/2", "two", painting("second"));
    EXPECT_EQ(painted_, run * 2) << "not before they are asked for";
    EXPECT_EQ(pictures.find("pages/1"), "first");
    EXPECT_EQ(pictures.find("pages/2"), "second");
    EXPECT_EQ(pictures.find("pages/1"), "first");
    EXPECT_EQ(pictures.find("pages/3"), std::nullopt);
    EXPECT_EQ(painted_, 2);
  }
  EXPECT_EQ(files().size(), 2);
}

TEST_F(KeptPictures, StayInMemoryWithoutAFolder) {
  Pictures pictures;
  EXPECT_FALSE(pictures.keepIn("/proc/none/such"));
  pictures.addKept("pages/1", "one", painting("first"));
  pictures.drawAhead({"pages/1"});
  EXPECT_EQ(pictures.find("pages/1"), "first");
  EXPECT_EQ(pictures.find("pages/1"), "first");
  EXPECT_EQ(painted_, 1);
}

TEST_F(KeptPictures, OfOtherContentAreOthersUnderTheSameKey) {
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  pictures.addKept("pages/1", "one", painting("first"));
  EXPECT_EQ(pictures.find("pages/1"), "first");
  pictures.addKept("pages/1", "another", painting("second"));
  EXPECT_EQ(pictures.find("pages/1"), "second");
  pictures.addKept("elsewhere", "one", painting("never"));
  EXPECT_EQ(pictures.find("elsewhere"), "first");
}

TEST_F(KeptPictures, LieBelowTheFolderWhateverTheirName) {
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  const std::vector<std::string> names = {
      "../../out", "/etc/x", "a/b", ".", std::string("nul\0l", 5), std::string(9000, 'x'), "a b\n"};
  for (const std::string& name : names) {
    pictures.addKept(name, name, painting("[" + name + "]"));
    EXPECT_EQ(pictures.find(name), "[" + name + "]");
  }
  EXPECT_EQ(files().size(), names.size());
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path().toStdString()), {}), 1);
}

TEST_F(KeptPictures, ArePaintedAnewWhereTheyAreMissingOrCutShort) {
  const std::string bytes(5000, 'p');
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  pictures.addKept("pages/1", "one", painting(bytes));
  EXPECT_EQ(pictures.find("pages/1"), bytes);
  const fs::path file = files().at(0);
  const auto whole = fs::file_size(file);
  int expected = 1;
  for (const std::uintmax_t size :
       {whole - 1, whole / 2, std::uintmax_t{40}, std::uintmax_t{3}, std::uintmax_t{0}}) {
    fs::resize_file(file, size);
    EXPECT_EQ(pictures.find("pages/1"), bytes) << size;
    EXPECT_EQ(painted_, ++expected) << size;
    EXPECT_EQ(fs::file_size(file), whole) << size;
  }
  {
    std::fstream changed(file, std::ios::in | std::ios::out | std::ios::binary);
    changed.seekp(1000);
    changed << "q";
  }
  EXPECT_EQ(pictures.find("pages/1"), bytes) << "what the disk lost is not shown";
  EXPECT_EQ(painted_, ++expected);
  fs::remove(file);
  EXPECT_EQ(pictures.find("pages/1"), bytes);
  EXPECT_EQ(painted_, ++expected);
}

TEST_F(KeptPictures, AreServedWhereTheFolderIsGone) {
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  fs::remove(folder());
  pictures.addKept("pages/1", "one", painting("first"));
  EXPECT_EQ(pictures.find("pages/1"), "first");
}

TEST_F(KeptPictures, AreNoExcuses) {
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  const auto pdf = PdfFile::of("%PDF-1.4 and nothing more");
  pictures.add("pages/1", pdf, 0, {60, 80});
  const auto excuse = pictures.find("pages/1");
  ASSERT_TRUE(excuse);
  EXPECT_FALSE(QImage::fromData(QByteArray::fromStdString(*excuse)).isNull());
  EXPECT_TRUE(files().empty());
  EXPECT_EQ(pictures.find("pages/1"), excuse);
}

TEST_F(KeptPictures, OfAPdfAreTheSameAsWithoutAFolder) {
  const auto pdf = PdfFile::of(demo_tests::writtenPdf({demo_tests::pageSaying("Salt")}));
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  pictures.add("pages/1", pdf, 0, {306, 396});
  pictures.add("thumbs/1", pdf, 0, {61, 79});
  EXPECT_EQ(pictures.find("pages/1"), pdf->picture(0, {306, 396}));
  const auto small = QImage::fromData(QByteArray::fromStdString(*pictures.find("thumbs/1")));
  EXPECT_EQ(small.size(), QSize(61, 79));
  EXPECT_EQ(files().size(), 2);
}

TEST_F(KeptPictures, AreDrawnAheadInTheOrderGiven) {
  std::vector<std::string> order;
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  for (const std::string key : {"a", "b", "c", "d"}) {
    pictures.addKept(key, key, [&order, key](const Demand& demand) {
      EXPECT_EQ(demand.urgency, Urgency::ahead);
      order.push_back(key);
      return PdfPicture{key, true};
    });
  }
  pictures.drawAhead({"c", "unknown", "a"});
  pictures.drawAhead({"c", "d"});
  waitForFiles(3);
  EXPECT_EQ(order, (std::vector<std::string>{"c", "a", "d"})) << "each once";
  EXPECT_EQ(pictures.find("c"), "c");
}

TEST_F(KeptPictures, ThatAreDrawnAheadKeepNobodyWaiting) {
  std::binary_semaphore begun{0};
  std::binary_semaphore go{0};
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  pictures.addKept("a", "a", [&](const Demand& demand) {
    if (demand.urgency == Urgency::ahead) {
      begun.release();
      go.acquire();
    }
    return PdfPicture{"painted", true};
  });
  pictures.drawAhead({"a"});
  begun.acquire();
  EXPECT_EQ(pictures.find("a"), "painted");
  go.release();
}

TEST_F(KeptPictures, AreDrawnAheadNoLongerThanTheyAreWanted) {
  std::binary_semaphore begun{0};
  {
    Pictures pictures;
    ASSERT_TRUE(pictures.keepIn(folder()));
    const auto paint = [&](const Demand& demand) {
      ++painted_;
      begun.release();
      std::binary_semaphore stopped{0};
      const std::stop_callback end(demand.stop, [&] { stopped.release(); });
      stopped.acquire();
      return PdfPicture{};
    };
    pictures.addKept("a", "a", paint);
    pictures.addKept("b", "b", paint);
    pictures.drawAhead({"a", "b"});
    begun.acquire();
  }
  EXPECT_EQ(painted_, 1);
  EXPECT_TRUE(files().empty());
}

TEST_F(KeptPictures, ArePaintedOnceForTwoWhoAskAtOnce) {
  std::binary_semaphore begun{0};
  std::binary_semaphore go{0};
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  pictures.addKept("a", "a", [&](const Demand&) {
    ++painted_;
    begun.release();
    go.acquire();
    return PdfPicture{"painted", true};
  });
  std::optional<std::string> first;
  std::optional<std::string> second;
  {
    const std::jthread one([&] { first = pictures.find("a"); });
    begun.acquire();
    const std::jthread other([&] { second = pictures.find("a"); });
    go.release();
  }
  EXPECT_EQ(first, "painted");
  EXPECT_EQ(second, "painted");
  EXPECT_EQ(painted_, 1);
}

TEST_F(KeptPictures, AreTriedAgainAfterAFailureOfAnyKind) {
  Pictures pictures;
  ASSERT_TRUE(pictures.keepIn(folder()));
  int tries = 0;
  const auto failing = [&](const Demand&) {
    ++tries;
    if (tries == 1) throw std::runtime_error("no room");
    return tries == 2 ? PdfPicture{} : PdfPicture{"painted", true};
  };
  pictures.addKept("kept", "kept", failing);
  EXPECT_THROW(pictures.find("kept"), std::runtime_error);
  EXPECT_EQ(pictures.find("kept"), "") << "not just now";
  EXPECT_EQ(pictures.find("kept"), "painted");
  EXPECT_EQ(pictures.find("kept"), "painted");
  EXPECT_EQ(tries, 3);
}

TEST(PictureFolders, KeepTheirLimitWhilePicturesComeIn) {
  const QTemporaryDir temporary;
  const auto folder = PictureFolder::at(temporary.path().toStdString(), 10'000);
  for (int i = 0; i < 100; ++i) {
    ASSERT_TRUE(folder->keep(std::to_string(i), std::string(1000, 'p')));
  }
  const auto kept = std::distance(fs::directory_iterator(temporary.path().toStdString()), {});
  EXPECT_LE(kept, 12);
  EXPECT_GE(kept, 8);
  EXPECT_TRUE(folder->has("99"));
}

TEST(PictureFolders, LoseWhatWasNotLookedAtForLongest) {
  const QTemporaryDir temporary;
  const std::string path = temporary.path().toStdString();
  std::ofstream(path + "/somebody's.picture") << std::string(9000, 'x');
  std::ofstream(path + "/" + std::string(64, 'a') + ".jpg") << "x";
  const auto past = fs::file_time_type::clock::now();
  {
    const auto folder = PictureFolder::at(path);
    int age = 0;
    for (const std::string name : {"new", "old", "older"}) {
      std::set<fs::path> before;
      for (const auto& entry : fs::directory_iterator(path)) before.insert(entry.path());
      ASSERT_TRUE(folder->keep(name, std::string(1000, 'p')));
      for (const auto& entry : fs::directory_iterator(path)) {
        if (before.contains(entry.path())) continue;
        fs::last_write_time(entry.path(), past - std::chrono::hours(++age));
      }
    }
    ASSERT_TRUE(folder->find("older")) << "which looks at it";
  }
  const auto folder = PictureFolder::at(path, 2500);
  EXPECT_TRUE(folder->has("new"));
  EXPECT_FALSE(folder->has("old"));
  EXPECT_TRUE(folder->has("older"));
  EXPECT_EQ(std::distance(fs::directory_iterator(path), {}), 4) << "what is not ours stays";
}

}  // namespace
}  // namespace vellix::demo
