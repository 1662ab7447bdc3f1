#include "approval/origin.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class TicketOrigins : public ApprovalTest {
 protected:
  TicketOrigins() {
    detail = detailOf(file());
    detail.origin.emplace();
  }
  OriginView view() { return originOf(detail, desk.time.now(), desk.calendar); }

  FileDetail detail;
};

TEST_F(TicketOrigins, TellWhoSentWhat) {
  EXPECT_EQ(view().line, "The supplier sent the proof");
  detail.origin->supplier = "Halden Press";
  EXPECT_EQ(view().line, "Halden Press sent the proof");
  detail.origin->filename = "cover.pdf";
  EXPECT_EQ(view().line, "Halden Press sent cover.pdf");
  detail.origin->received = minutesAgo(7);
  EXPECT_EQ(view().line, "Halden Press sent cover.pdf · 7 min ago");
  detail.origin->supplier = " ";
  detail.origin->filename = "";
  EXPECT_EQ(view().line, "The supplier sent the proof · 7 min ago");
}

TEST_F(TicketOrigins, LeadToTheFolder) {
  EXPECT_EQ(view().folder, "");
  detail.origin->links = Links{.drive = "https://drive.example/f"};
  EXPECT_EQ(view().folder, "");
  for (const char* none : {"", "folder", "file:///etc"}) {
    detail.origin->links->drive_folder = none;
    EXPECT_EQ(view().folder, "") << none;
  }
  detail.origin->links->drive_folder = "https://drive.example/d";
  EXPECT_EQ(view().folder, "https://drive.example/d");
}

TEST_F(TicketOrigins, TellWhatItWasCheckedAgainst) {
  EXPECT_EQ(view().unchecked, "No file of ours was found to check it against.");
  detail.origin->refs = std::vector<Ref>{};
  EXPECT_EQ(view().unchecked, "No file of ours was found to check it against.");
  detail.origin->refs =
      std::vector<Ref>{{.role = "submitted", .name = "sent.pdf", .link = "https://drive.example/1"},
                       {.role = "previous", .name = " "},
                       {.role = "fbc", .link = "sent.pdf"},
                       {.role = "latest"},
                       {.role = "whatever"}};
  EXPECT_EQ(view().unchecked, "");
  EXPECT_THAT(view().checked,
              ElementsAre(CheckedAgainstView{"0", "Checked against What we sent:", "sent.pdf",
                                             "https://drive.example/1"},
                          CheckedAgainstView{"1", "Checked against Last version:", "file", ""},
                          CheckedAgainstView{"2", "Checked against FBC:", "file", ""},
                          CheckedAgainstView{"3", "Checked against Last print:", "file", ""},
                          CheckedAgainstView{"4", "Checked against Last print:", "file", ""}));
}

TEST_F(TicketOrigins, GoByTheTicketWhereNothingIsTold) {
  detail.origin.reset();
  detail.file.supplier = "Halden Press";
  detail.file.filename = "cover.pdf";
  detail.file.refs = std::vector<Ref>{{.role = "fbc"}};
  detail.file.links = Links{.drive_folder = "https://drive.example/d"};
  EXPECT_EQ(view().line, "Halden Press sent cover.pdf");
  EXPECT_EQ(view().folder, "https://drive.example/d");
  EXPECT_EQ(view().checked.size(), 1U);
  EXPECT_EQ(view().unchecked, "");
  detail.origin.emplace();
  EXPECT_EQ(view().line, "The supplier sent the proof") << "no mixture of two versions";
}

}  // namespace
}  // namespace vellix
