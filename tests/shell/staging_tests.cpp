// What the command line is taken to ask for.
#include "shell/staging.hpp"

#include <gtest/gtest.h>

#include "shell/mark_lab.hpp"

namespace vellix {
namespace {

TEST(Staging, ReadsTheArgumentAfterTheFirstOccurrence) {
  const Arguments arguments{"vellix", "--shot", "a.png", "--file",
                            "--dark", "--shot", "b.png", "--size"};
  EXPECT_EQ(argument(arguments, "--shot"), "a.png");
  EXPECT_EQ(argument(arguments, "--file"), "--dark");
  EXPECT_EQ(argument(arguments, "--size"), std::nullopt);
  EXPECT_EQ(argument(arguments, "--sample"), std::nullopt);
  EXPECT_EQ(argument({"vellix", "--shot", "--shot"}, "--shot"), "--shot");
  EXPECT_EQ(argument({}, "--shot"), std::nullopt);
}

TEST(Staging, SeesAFlagWhereverItStands) {
  const Arguments arguments{"vellix", "--file", "--dark", "--narrow"};
  EXPECT_TRUE(hasFlag(arguments, "--dark"));
  EXPECT_TRUE(hasFlag(arguments, "--narrow"));
  EXPECT_FALSE(hasFlag(arguments, "--nar"));
  EXPECT_FALSE(hasFlag(arguments, "--DARK"));
}

TEST(Staging, IsOnOnlyWithAPath) {
  EXPECT_EQ(shotPath({"vellix", "--shot", "a.png"}), "a.png");
  EXPECT_EQ(shotPath({"vellix", "--dark", "--shot"}), std::nullopt);
  EXPECT_EQ(shotPath({"vellix", "--sample", "folder"}), std::nullopt);
}

TEST(Staging, ReadsNumbersAndNothingElse) {
  struct Case {
    const char* text;
    std::optional<double> number;
  };
  const Case cases[] = {
      {"2", 2},      {"1.5", 1.5}, {"-3", -3},         {"+4", 4},      {"1e2", 100},
      {".5", 0.5},   {"0", 0},     {"", std::nullopt}, {"+", {}},      {"+-2", {}},
      {"2 ", {}},    {" 2", {}},   {"2px", {}},        {"nan", {}},    {"inf", {}},
      {"1e999", {}}, {"1,5", {}},  {"two", {}},        {"--dark", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(numberIn(c.text), c.number) << '"' << c.text << '"';
}

TEST(Staging, TakesASizeOfExactlyTwoNumbers) {
  struct Case {
    const char* text;
    std::optional<ContentSize> size;
  };
  const Case cases[] = {
      {"800x600", ContentSize{800, 600}},
      {"1500x940", ContentSize{1500, 940}},
      {"800.4x600.5", ContentSize{800, 601}},
      {"800xaxb600", std::nullopt},
      {"ax800x600", ContentSize{800, 600}},
      {"800x600xa", ContentSize{800, 600}},
      {"x800xx600x", ContentSize{800, 600}},
      {"1e3x1e99", ContentSize{1000, 32767}},
      {"-5x0", ContentSize{1, 1}},
      {"800", std::nullopt},
      {"800x", std::nullopt},
      {"axb", std::nullopt},
      {"", std::nullopt},
      {"x", std::nullopt},
      {"800X600", std::nullopt},
      {"800x600x1", std::nullopt},
      {"800 x 600", std::nullopt},
      {"nanx600", std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(contentSize(c.text), c.size) << '"' << c.text << '"';
}

TEST(Staging, KnowsThePanelsThatStandAlone) {
  EXPECT_EQ(panelAlone({"vellix", "--panel", "lab"}), "lab");
  EXPECT_EQ(panelAlone({"vellix", "--panel", "settings"}), "settings");
  EXPECT_EQ(panelAlone({"vellix", "--panel", "log"}), "log");
  for (const char* sheet : {"send", "upload", "share"}) {
    EXPECT_EQ(panelAlone({"vellix", "--panel", sheet}), sheet);
  }
  EXPECT_EQ(panelAlone({"vellix", "--lab"}), "lab");
  EXPECT_EQ(panelAlone({"vellix", "--panel", "attic", "--lab"}), "lab");
  for (const char* other : {"attic", "", "LAB", "--dark"}) {
    EXPECT_EQ(panelAlone({"vellix", "--panel", other}), "") << other;
  }
  EXPECT_EQ(panelAlone({"vellix", "--panel"}), "");
  EXPECT_EQ(panelAlone({"vellix"}), "");
}

TEST(Staging, StandsApartForPicturesAndPanelsAlone) {
  EXPECT_TRUE(standsApart({"vellix", "--shot", "out.png"}));
  EXPECT_TRUE(standsApart({"vellix", "--lab"}));
  EXPECT_TRUE(standsApart({"vellix", "--panel", "settings"}));
  EXPECT_FALSE(standsApart({"vellix", "--shot"}));
  EXPECT_FALSE(standsApart({"vellix", "--panel", "attic"}));
  EXPECT_FALSE(standsApart({"vellix", "sorel://signed-in?code=a"}));
}

TEST(Staging, MakesKeysOfFileNames) {
  EXPECT_EQ(sampleKey("files_a1_p1.jpg"), "files/a1/p1.jpg");
  EXPECT_EQ(sampleKey("thumb.png"), "thumb.png");
  EXPECT_EQ(sampleKey("_.png"), "/.png");
  for (const char* other : {"sample.json", "a.JPG", "a.jpeg", "a.png.bak", "jpg", "a.webp"}) {
    EXPECT_EQ(sampleKey(other), std::nullopt) << other;
  }
}

TEST(Staging, ShowsTheSampleTextsInTheLab) {
  std::vector<std::string> texts;
  for (const auto& pill : markLab().samples) texts.push_back(pill.text);
  EXPECT_EQ(texts, (std::vector<std::string>{"Overdue 5 hr", "Due today 6 PM", "Due Wed 3 PM",
                                             "Up to date", "Offline", "Ready in about 40 sec"}));
  EXPECT_EQ(markLab().tones.size(), 7U);
  EXPECT_EQ(markLab().statuses[0], statusPill("anything"));
}

}  // namespace
}  // namespace vellix
