// What stands over the canvas.
#include "ticket/file_header.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

constexpr double kHour = 3'600'000;

class FileHeaders : public StoreTest {
 protected:
  FileHeaders() {
    store().board.set(boardOf({}));
    file.title = "The Lighthouse";
  }
  FileHeaderView view() {
    return fileHeader(store(), file, detail ? &*detail : nullptr, desk.time.now(), desk.calendar);
  }
  Lines facts() {
    Lines lines;
    for (const auto& fact : view().facts) lines.push_back(fact.label + ": " + fact.value);
    return lines;
  }
  Lines links() {
    Lines lines;
    for (const auto& link : view().links) {
      lines.push_back(link.label + " / " + link.icon + " / " + link.url);
    }
    return lines;
  }
  Lines labels() {
    Lines lines;
    for (const auto& link : view().links) lines.push_back(link.label);
    return lines;
  }
  // Links that tell whose they are.
  static Links linksOf(const std::string& whose) {
    const std::string base = "https://" + whose + ".example/";
    return {.gmail = base + "mail",
            .drive = base + "file",
            .drive_folder = base + "folder",
            .indd = base + "indd",
            .indd_name = "The Lighthouse.indd"};
  }
  static std::vector<Ref> refsOf(const std::string& whose) {
    const std::string base = "https://" + whose + ".example/";
    return {{.role = "submitted", .link = base + "sent"}, {.role = "fbc", .link = base + "fbc"}};
  }
  // A detail whose shown version came from elsewhere.
  void bringDetail() {
    detail = detailOf(file);
    detail->origin = Origin{.refs = refsOf("origin"), .links = linksOf("origin")};
  }

  FileItem file = ticketOf("t1");
  std::optional<FileDetail> detail;
};

TEST_F(FileHeaders, TellWhereTheApprovalStandsInFull) {
  EXPECT_FALSE(view().approval);
  file.approval = "changes";
  EXPECT_EQ(view().approval,
            (PillView{.text = "Changes asked", .icon = "arrow.uturn.backward", .tone = "red"}));
  file.approval = "mislaid";
  EXPECT_FALSE(view().approval);
}

TEST_F(FileHeaders, NameTheTicketAndItsState) {
  file.component = "Cover";
  file.status = "in_review";
  file.track = "reprint";
  file.summary = "One word differs.";
  EXPECT_EQ(view().heading, "The Lighthouse Cover");
  EXPECT_EQ(view().status, statusPill("in_review"));
  EXPECT_EQ(view().track, trackPill(true));
  EXPECT_EQ(view().summary, "One word differs.");
}

TEST_F(FileHeaders, TakeNoTrackForANewTitle) {
  EXPECT_EQ(view().track, trackPill(false));
  EXPECT_EQ(view().summary, "");
}

TEST_F(FileHeaders, TellEveryFactInItsPlace) {
  file.po = "7781";
  file.supplier = "Halden";
  file.page_count = 212;
  file.sender = "proofs@halden.example";
  file.received = 1'700'000'000'000;
  file.status = "reviewed";
  file.status_by = "jorvas@tessarine.example";
  file.status_at = wireOf(desk.time.now()) - 2 * kHour;
  EXPECT_THAT(facts(), ElementsAre("PO: 7781", "Supplier: Halden", "Pages: 212",
                                   "From: proofs@halden.example", "Came in: Nov 14",
                                   "Reviewed: Jorvas · 2 hr ago"));
}

TEST_F(FileHeaders, LeaveOutFactsWithoutAValue) {
  EXPECT_THAT(facts(), IsEmpty());
  file.po = "";
  file.supplier = "";
  file.sender = "";
  EXPECT_THAT(facts(), IsEmpty());
  file.page_count = 0;
  EXPECT_THAT(facts(), ElementsAre("Pages: 0"));
}

TEST_F(FileHeaders, TellAReviewOnlyByAPersonAndOnlyWhileItHolds) {
  file.status = "reviewed";
  file.status_at = wireOf(desk.time.now());
  EXPECT_THAT(facts(), IsEmpty()) << "by nobody";
  file.status_by = "";
  EXPECT_THAT(facts(), IsEmpty()) << "nor by one without an address";
  file.status_by = "renny@tessarine.example";
  EXPECT_THAT(facts(), ElementsAre("Reviewed: You · just now"));
  file.status_at.reset();
  EXPECT_THAT(facts(), ElementsAre("Reviewed: You"));
  file.status_by = "mira@elsewhere.example";
  EXPECT_THAT(facts(), ElementsAre("Reviewed: Mira"));
  file.status = "in_review";
  EXPECT_THAT(facts(), IsEmpty());
}

TEST_F(FileHeaders, OfferTheLinksOfTheTicketUntilTheDetailIsHere) {
  file.supplier = "Halden";
  file.links = linksOf("ticket");
  file.refs = refsOf("ticket");
  EXPECT_THAT(links(), ElementsAre("Email / envelope / https://ticket.example/mail",
                                   "Halden file / doc / https://ticket.example/file",
                                   "PO folder / folder / https://ticket.example/folder",
                                   "InDesign / pencil.and.ruler / https://ticket.example/indd",
                                   "What we sent / arrow.up.doc / https://ticket.example/sent",
                                   "FBC / book.closed / https://ticket.example/fbc"));
  bringDetail();
  EXPECT_THAT(links(), ElementsAre("Email / envelope / https://origin.example/mail",
                                   "Halden file / doc / https://origin.example/file",
                                   "PO folder / folder / https://origin.example/folder",
                                   "InDesign / pencil.and.ruler / https://origin.example/indd",
                                   "What we sent / arrow.up.doc / https://origin.example/sent",
                                   "FBC / book.closed / https://origin.example/fbc"));
}

TEST_F(FileHeaders, OfferTheTicketsLinksWhereTheDetailTellsNone) {
  file.links = linksOf("ticket");
  file.refs = refsOf("ticket");
  bringDetail();
  detail->origin->refs.reset();
  EXPECT_EQ(links()[0], "Email / envelope / https://origin.example/mail");
  EXPECT_EQ(links()[4], "What we sent / arrow.up.doc / https://ticket.example/sent");
  detail->origin->refs = refsOf("origin");
  detail->origin->links.reset();
  EXPECT_EQ(links()[0], "Email / envelope / https://ticket.example/mail");
  EXPECT_EQ(links()[4], "What we sent / arrow.up.doc / https://origin.example/sent");
  detail->origin.reset();
  EXPECT_EQ(links()[0], "Email / envelope / https://ticket.example/mail");
  EXPECT_EQ(links()[4], "What we sent / arrow.up.doc / https://ticket.example/sent");
}

TEST_F(FileHeaders, MixNoLinksOfTwoVersions) {
  file.links = linksOf("ticket");
  file.refs = refsOf("ticket");
  bringDetail();
  detail->origin->links = Links{.drive = "https://origin.example/file"};
  detail->origin->refs = std::vector<Ref>{{.role = "previous"}};
  EXPECT_THAT(links(), ElementsAre("Supplier file / doc / https://origin.example/file"));
}

struct Third {
  const char* name;
  std::optional<const char*> track;
  std::vector<const char*> roles;
  const char* link;  // empty for none
};
BOOST_DESCRIBE_STRUCT(Third, (), (name, track, roles, link))

class ThirdLinks : public FileHeaders, public testing::WithParamInterface<Third> {};

TEST_P(ThirdLinks, GoToTheReferenceOfTheTrack) {
  const auto& each = GetParam();
  if (each.track) file.track = *each.track;
  file.refs.emplace();
  for (const std::string role : each.roles) {
    file.refs->push_back({.role = role, .link = "https://a.example/" + role});
  }
  const std::string link = each.link;
  EXPECT_EQ(links(), link.empty() ? Lines{} : Lines{link});
}

INSTANTIATE_TEST_SUITE_P(
    All, ThirdLinks,
    testing::Values(
        Third{"NewTitle", "new_title", {"fbc"}, "FBC / book.closed / https://a.example/fbc"},
        Third{"NoTrack", {}, {"fbc"}, "FBC / book.closed / https://a.example/fbc"},
        Third{"Reprint",
              "reprint",
              {"latest"},
              "Last print / book.closed / https://a.example/latest"},
        Third{"NewTitleWithALastPrint",
              "new_title",
              {"latest"},
              "FBC / book.closed / https://a.example/latest"},
        Third{"ReprintWithAnFBC",
              "reprint",
              {"fbc"},
              "Last print / book.closed / https://a.example/fbc"},
        Third{"NewTitleWithBoth",
              "new_title",
              {"latest", "fbc"},
              "FBC / book.closed / https://a.example/fbc"},
        Third{"ReprintWithBoth",
              "reprint",
              {"fbc", "latest"},
              "Last print / book.closed / https://a.example/latest"},
        Third{"Neither", "reprint", {"previous", "supplier"}, ""}),
    [](const auto& each) { return each.param.name; });

TEST_F(FileHeaders, PassOverReferencesThatCannotBeOpened) {
  file.track = "reprint";
  file.refs = std::vector<Ref>{{.role = "submitted"},
                               {.role = "submitted", .link = "https://a.example/sent"},
                               {.role = "latest", .link = "Shared drive/7781"},
                               {.role = "fbc", .link = "https://a.example/fbc"},
                               {.role = "latest", .link = "https://a.example/latest"},
                               {.role = "latest", .link = "https://a.example/older"}};
  EXPECT_THAT(links(), ElementsAre("What we sent / arrow.up.doc / https://a.example/sent",
                                   "Last print / book.closed / https://a.example/latest"));
  file.refs->resize(4);
  EXPECT_EQ(links()[1], "Last print / book.closed / https://a.example/fbc");
}

TEST_F(FileHeaders, CallTheSuppliersFileByTheSupplier) {
  file.links = Links{.drive = "https://a.example"};
  EXPECT_THAT(labels(), ElementsAre("Supplier file"));
  file.supplier = "";
  EXPECT_THAT(labels(), ElementsAre("Supplier file"));
  file.supplier = "Halden";
  EXPECT_THAT(labels(), ElementsAre("Halden file"));
}

TEST_F(FileHeaders, OfferNothingThatNoBrowserOrMailProgramOpens) {
  file.links = Links{.gmail = "mailto:proofs@halden.example",
                     .drive = "file:///etc/passwd",
                     .drive_folder = "",
                     .indd = "javascript:alert(1)"};
  file.refs = std::vector<Ref>{{.role = "submitted", .link = "Shared drive/7781"}, {.role = "fbc"}};
  EXPECT_THAT(links(), ElementsAre("Email / envelope / mailto:proofs@halden.example"));
}

}  // namespace
}  // namespace vellix
