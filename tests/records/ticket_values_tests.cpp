// Each field of a ticket lands in the right place, with the right value.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

TEST(TicketValues, OfTheTicketItself) {
  const auto ticket = decoded<FileItem>(fullDocument("FileItem"));
  EXPECT_EQ(ticket.id, "f1");
  EXPECT_EQ(ticket.key, "K-1");
  EXPECT_EQ(ticket.po, "PO-22");
  EXPECT_EQ(ticket.title, "The Tide");
  EXPECT_EQ(ticket.component, "Cover");
  EXPECT_EQ(ticket.supplier, "Harbour Press");
  EXPECT_EQ(ticket.filename, "tide_cover.pdf");
  EXPECT_EQ(ticket.kind, "proof");
  EXPECT_EQ(ticket.sender, "sam@press.example");
  EXPECT_EQ(ticket.received, 1700000000003.5);
  EXPECT_EQ(ticket.page_count, 12);
  ASSERT_TRUE(ticket.links);
  EXPECT_EQ(ticket.links->gmail, "g");
  ASSERT_TRUE(ticket.refs);
  EXPECT_EQ(ticket.refs->at(0).role, "submitted");
  EXPECT_EQ(ticket.summary, "Two pages differ.");
  ASSERT_TRUE(ticket.counts);
  EXPECT_EQ(ticket.counts->high, 2);
  EXPECT_EQ(ticket.status, "in_review");
  EXPECT_EQ(ticket.status_by, "ann@x.example");
  EXPECT_EQ(ticket.status_at, 1700000000004.5);
  EXPECT_EQ(ticket.created, 1700000000005.5);
  EXPECT_EQ(ticket.rev, 8);
  EXPECT_EQ(ticket.thumb, "blob-t");
  ASSERT_TRUE(ticket.tally);
  EXPECT_EQ(ticket.tally->open, 4);
  ASSERT_TRUE(ticket.pages);
  EXPECT_EQ(ticket.pages->at(1).i, 1);
  EXPECT_EQ(ticket.track, "reprint");
  EXPECT_EQ(ticket.assignee, "bo@x.example");
  EXPECT_EQ(ticket.assigned_by, "cy@x.example");
  EXPECT_EQ(ticket.due, 1700000000006.5);
  EXPECT_EQ(ticket.due_by, "dee@x.example");
  EXPECT_EQ(ticket.urgent, true);
  EXPECT_EQ(ticket.deadline, 1700000000007.5);
  ASSERT_TRUE(ticket.share);
  EXPECT_TRUE(ticket.share->enabled);
  EXPECT_EQ(ticket.version, 3);
  EXPECT_EQ(ticket.approval, "sent");
  EXPECT_EQ(ticket.approval_by, "eve@x.example");
  EXPECT_EQ(ticket.approval_at, 1700000000008.5);
  EXPECT_EQ(ticket.approvers, (std::vector<std::string>{"kay@y.example", "lou@y.example"}));
}

TEST(TicketValues, OfItsLinksRefsCountsAndTally) {
  EXPECT_EQ(
      decoded<FileItem>(fullDocument("Links")).links,
      (Links{.gmail = "g", .drive = "d", .drive_folder = "f", .indd = "i", .indd_name = "n"}));
  EXPECT_EQ(decoded<FileItem>(fullDocument("Ref")).refs,
            (std::vector{Ref{.role = "submitted",
                             .name = "tide_v1.pdf",
                             .link = "https://drive.example/ref",
                             .page_count = 13,
                             .matched = 11,
                             .note = "one page short"}}));
  EXPECT_EQ(decoded<FileItem>(fullDocument("Counts")).counts,
            (Counts{.pages = 12, .high = 1, .medium = 2, .low = 3, .expected = 4, .shown = 5}));
  EXPECT_EQ(decoded<FileItem>(fullDocument("Tally")).tally,
            (Tally{.open = 6, .issues = 7, .total = 8}));
}

TEST(TicketValues, OfItsShareLink) {
  EXPECT_EQ(decoded<FileItem>(fullDocument("ShareInfo")).share,
            (ShareInfo{.enabled = true,
                       .access = "comment",
                       .url = "https://share.example/1",
                       .embed_url = "https://share.example/e/1",
                       .by = "ann@x.example",
                       .at = 1700000000009.5}));
}

TEST(TicketValues, OfAPage) {
  const auto ticket = decoded<FileItem>(fullDocument("Page"));
  ASSERT_TRUE(ticket.pages);
  const auto& page = ticket.pages->at(0);
  EXPECT_EQ(page.i, 6);
  EXPECT_EQ(page.label, "vii");
  EXPECT_EQ(page.w, 431.5);
  EXPECT_EQ(page.h, 612.25);
  EXPECT_EQ(page.img, "blob-p");
  EXPECT_EQ(page.thumb, "blob-q");
  EXPECT_EQ(page.px, (std::vector{1500.5, 2000.25}));
  ASSERT_TRUE(page.refs);
  ASSERT_EQ(page.refs->size(), 2u);
  EXPECT_EQ(page.refs->at("submitted").i, 5);
  EXPECT_EQ(page.refs->at("supplier"), RefPage{});
  EXPECT_EQ(page.ocr, false);
}

TEST(TicketValues, OfAPagesReference) {
  const auto ticket = decoded<FileItem>(fullDocument("RefPage"));
  ASSERT_TRUE(ticket.pages);
  EXPECT_EQ(ticket.pages->at(1).refs->at("supplier"), (RefPage{.i = 5,
                                                               .label = "vi",
                                                               .img = "blob-r",
                                                               .px = {{800.5, 1200.5}},
                                                               .score = 0.875,
                                                               .how = "text"}));
}

}  // namespace
}  // namespace vellix::test
