// From the first piece of a report to its file in the person's folder of downloads.

#include <QFile>
#include <QUrl>
#include <future>
#include <optional>
#include <utility>

#include "platform/MemoryPeak.hpp"
#include "platform/http_support.hpp"
#include "platform/qt/QtDownloads.hpp"
#include "platform/reports.hpp"
#include "platform/waiting.hpp"
#include "store/report_file.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Url = std::optional<std::string>;

class DownloadsTest : public ReportsTest {
 protected:
  void SetUp() override {
    ReportsTest::SetUp();
    before_ = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(QString::fromStdString(root().string())));
    nameFolder(folder());
  }
  void TearDown() override {
    before_.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before_);
  }
  void nameFolder(const fs::path& path) const {
    std::ofstream(root() / "user-dirs.dirs") << "XDG_DOWNLOAD_DIR=\"" << path.string() << "\"\n";
  }
  static Download::Naming titled(const std::string& title) {
    return [title](ReportFolder& folder) { return keepReport(title, folder); };
  }
  // As it is told to the desktop.
  Url kept(const std::string& title, const std::string& bytes) {
    const auto download = downloads_->begin();
    if (!bytes.empty()) {
      EXPECT_TRUE(download->write(bytes));
    }
    const auto pending = download->keep(titled(title));
    EXPECT_FALSE(pending.resolved()) << "only in a later turn";
    return await(pending).value_or(std::nullopt);
  }
  std::string urlAt(const std::string& name) const {
    return QUrl::fromLocalFile(QFile::decodeName(QByteArray::fromStdString(at(name).string())))
        .toEncoded()
        .toStdString();
  }

  std::optional<QtDownloads> downloads_{std::in_place};

 private:
  QByteArray before_;
};

TEST_F(DownloadsTest, AreKeptUnderTheirTitle) {
  for (const std::size_t size : {0U, 1U, 1'000'000U}) {
    const std::string bytes = someReport(size);
    EXPECT_EQ(kept("The Lighthouse", bytes), urlAt("The Lighthouse.pdf"));
    EXPECT_THAT(all(), ElementsAre("The Lighthouse.pdf"));
    EXPECT_EQ(bytesOf("The Lighthouse.pdf"), bytes);
    fs::remove(at("The Lighthouse.pdf"));
  }
}

TEST_F(DownloadsTest, PutNothingOnTheDiskBeforeThereIsSomething) {
  const auto download = downloads_->begin();
  EXPECT_THAT(all(), IsEmpty());
  ASSERT_TRUE(download->write("x"));
  EXPECT_EQ(all().size(), 1U);
}

TEST_F(DownloadsTest, DoNotPileUp) {
  EXPECT_EQ(kept("Title", "one"), urlAt("Title.pdf"));
  EXPECT_EQ(kept("Title", "one"), urlAt("Title.pdf"));
  EXPECT_EQ(kept("Title", "two"), urlAt("Title 2.pdf"));
  EXPECT_EQ(kept("Title", "two"), urlAt("Title 2.pdf"));
  EXPECT_EQ(kept("Title", "three"), urlAt("Title 3.pdf"));
  EXPECT_THAT(all(), ElementsAre("Title 2.pdf", "Title 3.pdf", "Title.pdf"));
  EXPECT_EQ(bytesOf("Title.pdf"), "one");
  EXPECT_EQ(bytesOf("Title 2.pdf"), "two");
}

TEST_F(DownloadsTest, ReplaceNothing) {
  fs::create_directory(at("Title.pdf"));
  fs::create_symlink(root() / "nowhere.pdf", at("Title 2.pdf"));
  ASSERT_EQ(::mkfifo(at("Title 3.pdf").c_str(), 0600), 0);
  EXPECT_EQ(kept("Title", "pdf"), urlAt("Title 4.pdf"));
  EXPECT_EQ(all().size(), 4U);
  EXPECT_TRUE(fs::is_empty(at("Title.pdf")));
  EXPECT_FALSE(fs::exists(root() / "nowhere.pdf"));
}

TEST_F(DownloadsTest, TakeAnyTitle) {
  std::string longest;
  for (int i = 0; i < 300; ++i) longest += "燈";
  for (const auto& title :
       {std::string("../../etc/passwd"), std::string("a/b\\c"), std::string("..."),
        std::string("line\nbreak"), longest, std::string("\xff\xfe"), std::string("#? %20.pdf")}) {
    const auto url = kept(title, title);
    ASSERT_TRUE(url) << title;
    ASSERT_EQ(all().size(), 1U) << title;
    EXPECT_EQ(*url, urlAt(all().front()));
    EXPECT_EQ(bytesOf(all().front()), title);
    fs::remove(at(all().front()));
  }
}

TEST_F(DownloadsTest, TwoAtOnceGetANameEach) {
  const auto one = downloads_->begin();
  const auto other = downloads_->begin();
  ASSERT_TRUE(one->write("one"));
  ASSERT_TRUE(other->write("other"));
  const auto first = one->keep(titled("Title"));
  const auto second = other->keep(titled("Title"));
  const auto firstUrl = await(first).value_or(std::nullopt);
  const auto secondUrl = await(second).value_or(std::nullopt);
  ASSERT_TRUE(firstUrl && secondUrl);
  EXPECT_NE(*firstUrl, *secondUrl);
  EXPECT_THAT(all(), ElementsAre("Title 2.pdf", "Title.pdf"));
  EXPECT_EQ(bytesOf("Title.pdf").size() + bytesOf("Title 2.pdf").size(), 8U);
}

TEST_F(DownloadsTest, AreNamedWhereOneMayWait) {
  const auto download = downloads_->begin();
  std::thread::id where;
  const auto pending = download->keep([&where](ReportFolder&) {
    where = std::this_thread::get_id();
    return std::optional<std::string>{};
  });
  EXPECT_EQ(await(pending).value_or("none"), Url{});
  EXPECT_NE(where, std::this_thread::get_id());
  EXPECT_THAT(all(), IsEmpty()) << "what gets no name is gone with the answer";
}

TEST_F(DownloadsTest, LeaveNothingWhenTheyGo) {
  {
    const auto download = downloads_->begin();
    ASSERT_TRUE(download->write("half"));
    ASSERT_EQ(all().size(), 1U);
  }
  EXPECT_THAT(all(), IsEmpty());
}

TEST_F(DownloadsTest, LeaveNothingWhenTheProgramEnds) {
  const auto download = downloads_->begin();
  ASSERT_TRUE(download->write("half"));
  downloads_.reset();
  EXPECT_THAT(all(), IsEmpty());
  EXPECT_FALSE(download->write("more"));
  EXPECT_THAT(all(), IsEmpty());
}

TEST_F(DownloadsTest, ThatAreBeingNamedAtTheEndLeaveNothing) {
  const auto download = downloads_->begin();
  ASSERT_TRUE(download->write("whole"));
  std::promise<void> begun;
  std::promise<void> go;
  std::promise<std::optional<std::string>> named;
  const auto pending =
      download->keep([&begun, &named, going = go.get_future().share()](ReportFolder& folder) {
        begun.set_value();
        going.wait();
        const auto name = keepReport("Title", folder);
        named.set_value(name);
        return name;
      });
  begun.get_future().wait();
  downloads_.reset();
  EXPECT_THAT(all(), IsEmpty());
  go.set_value();
  EXPECT_EQ(named.get_future().get(), std::nullopt);
  EXPECT_THAT(all(), IsEmpty());
  QCoreApplication::processEvents();
  EXPECT_FALSE(pending.resolved());
}

TEST_F(DownloadsTest, AreNoneWithoutAFolder) {
  std::ofstream(root() / "file") << "x";
  for (const fs::path& path : {root() / "file", root() / "no" / "folder", fs::path("/proc")}) {
    nameFolder(path);
    EXPECT_FALSE(downloads_->begin()->write("pdf")) << path;
    EXPECT_EQ(kept("Title", ""), Url{}) << path;
  }
}

TEST_F(DownloadsTest, GoWhereTheDesktopSaysWhenTheyBegin) {
  const auto early = downloads_->begin();
  nameFolder(root() / "Other place");
  const auto late = downloads_->begin();
  ASSERT_TRUE(early->write("early"));
  ASSERT_TRUE(late->write("late"));
  ASSERT_TRUE(await(early->keep(titled("Title"))).value_or(std::nullopt));
  EXPECT_EQ(await(late->keep(titled("Title"))).value_or(std::nullopt),
            "file://" + root().string() + "/Other%20place/Title.pdf");
  EXPECT_EQ(bytesOf("Title.pdf"), "early");
  EXPECT_EQ(bytesOf("../Other place/Title.pdf"), "late");
}

// All the way from the service, held nowhere but on the disk.
TEST_F(DownloadsTest, Of200MegabytesTakeLittleMemory) {
  constexpr std::size_t kReport = 200'000'000;
  LoopbackServer server([](Peer& peer) {
    while (const auto seen = peer.readRequest()) {
      if (seen->line.find("/ping") != std::string::npos) {
        peer.send(answer(200, "pong"));
        continue;
      }
      peer.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kReport) + "\r\n\r\n");
      for (std::size_t sent = 0; sent < kReport; sent += 100'000) {
        if (!peer.send(std::string(100'000, static_cast<char>(sent / 100'000)))) return;
      }
    }
  });
  QtHttp http;
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"), HttpLane::transfers)));
  const auto arrive = [&] {
    const auto download = downloads_->begin();
    auto asked = request("GET", server.url("/report"), HttpLane::transfers);
    asked.sink = download;
    EXPECT_TRUE(exchange(http, std::move(asked)).has_value());
    return await(download->keep(titled("Title")), 60'000).value_or(std::nullopt);
  };
  const MemoryPeak peak;
  EXPECT_EQ(arrive(), urlAt("Title.pdf"));
  EXPECT_EQ(arrive(), urlAt("Title.pdf")) << "compared as well";
  EXPECT_LT(peak.kilobytes(), 48 * 1'024);
  EXPECT_THAT(all(), ElementsAre("Title.pdf"));
  EXPECT_EQ(fs::file_size(at("Title.pdf")), kReport);
}

}  // namespace
}  // namespace vellix
