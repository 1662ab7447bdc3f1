// What stands over the list, and in its place when it is empty.
#include "board/file_list.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kRenny = "renny@tessarine.example";

class FileListHeads : public StoreTest {
 protected:
  void show(std::vector<FileItem> files) { store().board.set(boardOf(std::move(files))); }
  FileListHead head() { return fileList(store(), false, desk.time.now()).head; }
  FileItem due(std::string id, double seconds, std::string status = "new") {
    FileItem file = ticketOf(std::move(id), std::move(status));
    file.due = wireOf(desk.time.now()) + seconds * 1'000;
    return file;
  }
  FileItem reprint(FileItem file) {
    file.track = "reprint";
    return file;
  }
};

TEST_F(FileListHeads, CountWhatIsOverdue) {
  show({due("a", -1), due("b", -0.001, "in_review"), due("c", 0), due("d", 60), ticketOf("e")});
  EXPECT_EQ(head().overdue, "2 overdue");
}

TEST_F(FileListHeads, MoveTheMarkWhileASyncRuns) {
  EXPECT_FALSE(head().syncing);
  BoardState board = boardOf({});
  store().board.set(board);
  EXPECT_FALSE(head().syncing);
  for (const char* status : {"queued", "running", "stuck", "done"}) {
    board.sync = jobOf(status, "sync");
    store().board.set(board);
    EXPECT_EQ(head().syncing, std::string_view{status} == "running") << status;
  }
}

TEST_F(FileListHeads, SayNothingOfOverdueTicketsWhenThereAreNone) {
  show({due("a", 0), ticketOf("b")});
  EXPECT_EQ(head().overdue, "");
}

TEST_F(FileListHeads, LeaveTheReviewedOutOfTheOverdue) {
  show({due("a", -60, "reviewed"), due("b", -60, "archived")});
  EXPECT_EQ(head().overdue, "1 overdue");
}

TEST_F(FileListHeads, CountTheOverdueOfTheQueueOnShowAlone) {
  auto mine = due("a", -60);
  mine.assignee = kRenny;
  show({mine, due("b", -60), reprint(due("c", -60)), reprint(due("d", -60)),
        reprint(due("e", -60))});
  EXPECT_EQ(head().overdue, "2 overdue");
  store().setQueue("reprint");
  EXPECT_EQ(head().overdue, "3 overdue");
  store().setMineOnly(true);
  EXPECT_EQ(head().overdue, "");
  store().setQueue("new_title");
  EXPECT_EQ(head().overdue, "1 overdue");
}

TEST_F(FileListHeads, ReadTheMomentEachTime) {
  show({due("a", 60)});
  EXPECT_EQ(head().overdue, "");
  desk.time.advance(Milliseconds{60'001});
  EXPECT_EQ(head().overdue, "1 overdue");
}

struct Emptiness {
  const char* name;
  bool board;
  bool files;
  const char* queue;
  bool mineOnly;
  const char* first;
  const char* second;
};
BOOST_DESCRIBE_STRUCT(Emptiness, (), (name, board, files, queue, mineOnly, first, second))

class EmptyLists : public FileListHeads, public testing::WithParamInterface<Emptiness> {};

TEST_P(EmptyLists, SayWhy) {
  const auto& each = GetParam();
  if (each.board) show({});
  // A ticket of neither queue: a board with files, and nothing to show of them.
  auto elsewhere = ticketOf("a");
  elsewhere.track = "atlas";
  if (each.files) show({elsewhere});
  store().setQueue(each.queue);
  store().setMineOnly(each.mineOnly);
  EXPECT_TRUE(head().empty);
  EXPECT_EQ(head().emptyFirst, each.first);
  EXPECT_EQ(head().emptySecond, each.second);
  EXPECT_EQ(head().mineOnly, each.mineOnly) << "the filter row stands over the emptiness too";
}

constexpr const char* kMine = "Turn off Only mine to see everyone's.";
constexpr const char* kWaiting = "Nothing waiting in this queue.";
constexpr const char* kNothing = "Nothing to review.";
constexpr const char* kSync = "Press Sync to check supplier mail.";

INSTANTIATE_TEST_SUITE_P(
    All, EmptyLists,
    testing::Values(
        Emptiness{"ReprintsOfMine", true, true, "reprint", true, "No reprints here.", kMine},
        Emptiness{"Reprints", true, true, "reprint", false, "No reprints here.", kWaiting},
        Emptiness{"TitlesOfMine", true, true, "new_title", true, "No new titles here.", kMine},
        Emptiness{"Titles", true, true, "new_title", false, "No new titles here.", kWaiting},
        Emptiness{"NoQueueChosen", true, true, "", false, "No new titles here.", kWaiting},
        Emptiness{"NoFiles", true, false, "reprint", true, kNothing, kSync},
        Emptiness{"NoBoard", false, false, "new_title", true, kNothing, kSync}),
    [](const auto& each) { return each.param.name; });

TEST_F(FileListHeads, AreNotEmptyOverATicket) {
  show({ticketOf("a")});
  EXPECT_FALSE(head().empty);
}

TEST_F(FileListHeads, NameTheTwoQueues) {
  const auto queues = head().queues;
  ASSERT_EQ(queues.size(), 2U);
  EXPECT_EQ(queues[0], (QueueView{"new_title", "New titles", "", false}));
  EXPECT_EQ(queues[1], (QueueView{"reprint", "Reprints", "", false}));
}

TEST_F(FileListHeads, SelectTheQueueOnShow) {
  show({});
  store().setQueue("reprint");
  EXPECT_EQ(head().queue, "reprint");
}

TEST_F(FileListHeads, OpenOnReprintsForTheirReviewer) {
  auto board = boardOf({});
  board.me.email = "jorvas@tessarine.example";
  store().board.set(board);
  store().setQueue("atlas");
  EXPECT_EQ(head().queue, "reprint");
  store().board.set(boardOf({}));
  EXPECT_EQ(head().queue, "new_title") << "another address has another default";
}

TEST_F(FileListHeads, CountTheOpenTicketsOfEachQueue) {
  show({ticketOf("a"), ticketOf("b", "in_review"), ticketOf("c", "reviewed"),
        ticketOf("d", "archived"), reprint(ticketOf("e"))});
  EXPECT_EQ(head().queues[0].count, "3");
  EXPECT_EQ(head().queues[1].count, "1");
}

TEST_F(FileListHeads, ShowNoCountWhenOnlyReviewedTicketsAreLeft) {
  show({ticketOf("a", "reviewed"), reprint(ticketOf("b", "reviewed"))});
  EXPECT_EQ(head().queues[0].count, "");
  EXPECT_EQ(head().queues[1].count, "");
}

TEST_F(FileListHeads, TurnAQueueLateByAnOpenTicketOnly) {
  show({due("a", -60, "reviewed"), due("b", 0), reprint(due("c", -60))});
  EXPECT_FALSE(head().queues[0].late);
  EXPECT_TRUE(head().queues[1].late);
}

TEST_F(FileListHeads, CountOnlyTheReviewersOwnWhenAsked) {
  auto mine = due("a", 60);
  mine.assignee = kRenny;
  auto other = due("b", -60);
  other.assignee = "jorvas@tessarine.example";
  show({mine, other, reprint(ticketOf("c"))});
  store().setMineOnly(true);
  EXPECT_TRUE(head().mineOnly);
  EXPECT_EQ(head().queues[0].count, "1");
  EXPECT_FALSE(head().queues[0].late);
  EXPECT_EQ(head().queues[1].count, "");
}

TEST_F(FileListHeads, TakeATicketWithoutTrackForANewTitle) {
  show({ticketOf("a")});
  store().setQueue("reprint");
  EXPECT_TRUE(head().empty);
  EXPECT_EQ(head().queues[0].count, "1");
}

}  // namespace
}  // namespace vellix
