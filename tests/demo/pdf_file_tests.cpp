// PDFs as files: of the disk's or uploaded, large, gone meanwhile.
#include "pdf_file.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "large_pdf.hpp"

namespace vellix::demo {
namespace {

using demo_tests::pageSaying;
using demo_tests::writtenPdf;

const std::string kSound = writtenPdf({pageSaying("Salt"), pageSaying("Pepper")});

TEST(PdfFiles, MayBeLargerThanMemory) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString() + "/large.pdf";
  demo_tests::writeLarge(path, pageSaying("Far"), (std::streamoff{2} << 30) + 12'345);
  const auto pdf = PdfFile::at(path);
  ASSERT_TRUE(pdf);
  EXPECT_GT(pdf->size(), std::size_t{2} << 30);
  EXPECT_EQ(pdf->facts().trouble, PdfTrouble::none);
  const auto pages = pdf->pages(0, 1);
  ASSERT_EQ(pages.size(), 1);
  EXPECT_EQ(pages[0].words.at(0).text, "Far");
  EXPECT_TRUE(pdf->drawn(0, {200, 260}).drawn);
  EXPECT_EQ(pdf->sights(0, 1).size(), 1);
  EXPECT_TRUE(pdf->piece(pdf->size() - 6, 100).starts_with("%%EOF"));
}

TEST(PdfFiles, AreOpenedOnlyWhereTheyAreFiles) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString() + "/one.pdf";
  EXPECT_EQ(PdfFile::at(path), nullptr);
  EXPECT_EQ(PdfFile::at(folder.path().toStdString()), nullptr);
  const std::string pipe = folder.path().toStdString() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(PdfFile::at(pipe), nullptr);
  std::ofstream(path) << kSound;
  const auto pdf = PdfFile::at(path);
  ASSERT_TRUE(pdf);
  EXPECT_EQ(pdf->tag(), PdfFile::at(path)->tag());
  EXPECT_EQ(pdf->piece(0, pdf->size()), kSound);
  EXPECT_EQ(pdf->piece(5, 3), kSound.substr(5, 3));
  EXPECT_EQ(pdf->piece(kSound.size() + 5, 3), "");
  ASSERT_EQ(unlink(path.c_str()), 0);
  EXPECT_EQ(pdf->facts().count, 2) << "it stays open";
  std::ofstream(path) << kSound << "\n";
  EXPECT_NE(pdf->tag(), PdfFile::at(path)->tag());
  EXPECT_EQ(PdfFile::of(kSound)->tag(), PdfFile::of(kSound)->tag());
  EXPECT_NE(PdfFile::of(kSound)->tag(), PdfFile::of(kSound + " ")->tag());
}

TEST(PdfFiles, AreNotReadOnceNobodyWantsTo) {
  std::stop_source over;
  over.request_stop();
  const Demand none{Urgency::checked, over.get_token()};
  const auto pdf = PdfFile::of(kSound);
  EXPECT_TRUE(pdf->pages(0, 2, none).empty());
  EXPECT_TRUE(pdf->sights(0, 2, none).empty());
  const PdfPicture picture = pdf->drawn(0, {50, 50}, none);
  EXPECT_FALSE(picture.drawn);
  EXPECT_TRUE(picture.jpeg.empty()) << "no excuse for what was not tried";
  EXPECT_EQ(pdf->pages(0, 2).size(), 2) << "and the next one has its turn";
}

// Ends the readers of this process from without, as many as it is told to.
class ReaderKiller {
 public:
  explicit ReaderKiller(int most) : left_(most), killer_([this](const auto& stop) { run(stop); }) {}

 private:
  void run(const std::stop_token& stop) {
    pid_t last = 0;
    while (!stop.stop_requested() && left_ > 0) {
      for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream children(thread.path() / "children");
        for (pid_t child = 0; children >> child;) {
          if (child == last || left_ == 0) continue;
          last = child;
          --left_;
          kill(child, SIGKILL);
        }
      }
    }
  }

  int left_;
  std::jthread killer_;
};

TEST(PdfFiles, AreReadOnceMoreWhereTheReaderWasEnded) {
  const auto pdf = PdfFile::of(kSound);
  for (int turn = 0; turn < 5; ++turn) {
    {
      const ReaderKiller killer(1);
      EXPECT_EQ(pdf->facts().trouble, PdfTrouble::none);
    }
    {
      const ReaderKiller killer(1);
      EXPECT_EQ(pdf->pages(0, 2).size(), 2);
    }
    const ReaderKiller killer(1);
    EXPECT_TRUE(pdf->drawn(0, {50, 50}).drawn);
  }
}

TEST(PdfFiles, AreNeverCalledDamagedForTheirReader) {
  const auto pdf = PdfFile::of(kSound);
  const ReaderKiller killer(1'000'000);
  PdfTrouble trouble = PdfTrouble::none;
  // A reader may be quicker than its killer.
  while (trouble == PdfTrouble::none) trouble = pdf->facts().trouble;
  EXPECT_EQ(trouble, PdfTrouble::unread);
  do {
    trouble = pdf->read().trouble;
  } while (trouble == PdfTrouble::none);
  EXPECT_EQ(trouble, PdfTrouble::unread);
  PdfPicture picture{"", true};
  while (picture.drawn) picture = pdf->drawn(0, {50, 50});
  EXPECT_EQ(picture.jpeg, "") << "nothing is said of the page";
}

}  // namespace
}  // namespace vellix::demo
