// Which tickets the list holds and which one is on show.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Ids = std::vector<std::string>;

FileItem in(std::string track, FileItem file) {
  file.track = std::move(track);
  return file;
}
FileItem dueAt(double due, FileItem file) {
  file.due = due;
  return file;
}
FileItem assignedTo(std::string email, FileItem file) {
  file.assignee = std::move(email);
  return file;
}

class Selection : public StoreTest {
 protected:
  void show(std::vector<FileItem> files) { store().board.set(boardOf(std::move(files))); }
  Ids listed(std::string_view queue) {
    Ids ids;
    for (const FileItem* file : store().filesInQueue(queue)) ids.push_back(file->id);
    return ids;
  }
  void signInAs(const std::string& email) {
    store().board.edit([&](auto& board) { board->me.email = email; });
  }
};

TEST_F(Selection, HasACurrentFileOnlyWhenItIsExactlyOneIdOfTheBoard) {
  store().selection.set({"t1"});
  EXPECT_FALSE(store().currentFile()) << "no board";
  show({ticketOf("t1"), ticketOf("t2")});
  ASSERT_TRUE(store().currentFile());
  EXPECT_EQ(store().currentFile()->id, "t1");
  store().selection.set({"t1", "t2"});
  EXPECT_FALSE(store().currentFile());
  store().selection.set({});
  EXPECT_FALSE(store().currentFile());
  store().selection.set({"gone"});
  EXPECT_FALSE(store().currentFile());
}

TEST_F(Selection, TakesTheFirstOfTwoTicketsWithOneId) {
  show({ticketOf("t1", "first"), ticketOf("t1", "second")});
  store().selection.set({"t1"});
  EXPECT_EQ(store().currentFile()->status, "first");
}

TEST_F(Selection, HasACurrentDetailOnlyForTheCurrentFile) {
  show({ticketOf("t1")});
  store().details.set({{"t1", detailOf(ticketOf("t1"))}, {"t2", detailOf(ticketOf("t2"))}});
  EXPECT_FALSE(store().currentDetail());
  store().selection.set({"t1"});
  ASSERT_TRUE(store().currentDetail());
  EXPECT_EQ(store().currentDetail()->file.id, "t1");
  store().selection.set({"t2"});
  EXPECT_FALSE(store().currentDetail()) << "not on the board";
  store().selection.set({"t1"});
  store().details.set({});
  EXPECT_FALSE(store().currentDetail());
}

struct QueueCase {
  const char* name;
  const char* chosen;
  std::optional<std::string> email;
  const char* queue;
};
BOOST_DESCRIBE_STRUCT(QueueCase, (), (name, chosen, email, queue))

class EffectiveQueue : public Selection, public testing::WithParamInterface<QueueCase> {};

TEST_P(EffectiveQueue, IsTheChosenOneOrThePersonsOwn) {
  store().queue.set(GetParam().chosen);
  if (GetParam().email) {
    show({});
    signInAs(*GetParam().email);
  }
  EXPECT_EQ(store().effectiveQueue(), GetParam().queue);
}

INSTANTIATE_TEST_SUITE_P(
    All, EffectiveQueue,
    testing::Values(QueueCase{"ChosenReprint", "reprint", "a@b", "reprint"},
                    QueueCase{"ChosenNewTitle", "new_title", "jorvas@b", "new_title"},
                    QueueCase{"ChosenWithoutBoard", "reprint", std::nullopt, "reprint"},
                    QueueCase{"NoneWithoutBoard", "", std::nullopt, "new_title"},
                    QueueCase{"SecondReviewer", "", "jorvas@b", "reprint"},
                    QueueCase{"AnyAddressThatBeginsSo", "", "jorvassen@b", "reprint"},
                    QueueCase{"CaseMatters", "", "Jorvas@b", "new_title"},
                    QueueCase{"OnlyAtTheBeginning", "", "a.jorvas@b", "new_title"},
                    QueueCase{"AnybodyElse", "", "renny@b", "new_title"},
                    QueueCase{"NobodysAddress", "", "", "new_title"},
                    QueueCase{"UnknownChoice", "other", "jorvas@b", "reprint"}),
    [](const auto& each) { return each.param.name; });

TEST_F(Selection, ListsTheTicketsOfAQueueInBoardOrder) {
  show({in("reprint", ticketOf("a")), ticketOf("b"), in("new_title", ticketOf("c")),
        in("reprint", ticketOf("d")), in("other", ticketOf("e")), in("", ticketOf("f"))});
  EXPECT_THAT(listed("new_title"), ElementsAre("b", "c"));
  EXPECT_THAT(listed("reprint"), ElementsAre("a", "d"));
  EXPECT_THAT(listed("other"), ElementsAre("e"));
  EXPECT_THAT(listed("nothing"), IsEmpty());
}

TEST_F(Selection, ListsNothingWithoutABoard) { EXPECT_THAT(listed("new_title"), IsEmpty()); }

TEST_F(Selection, ListsOnlyMyTicketsWhenToldTo) {
  show({assignedTo("renny@tessarine.example", ticketOf("mine")),
        assignedTo("Renny@tessarine.example", ticketOf("other case")), ticketOf("nobody's"),
        assignedTo("jorvas@tessarine.example", ticketOf("theirs"))});
  store().setMineOnly(true);
  EXPECT_THAT(listed("new_title"), ElementsAre("mine"));
  store().setMineOnly(false);
  EXPECT_EQ(listed("new_title").size(), 4U);
}

TEST_F(Selection, IsNotTouchedByMineOnlyWhichIsKept) {
  show({ticketOf("t1")});
  store().selection.set({"t1"});
  store().focus.set("f1");
  store().setMineOnly(true);
  EXPECT_TRUE(store().mineOnly());
  EXPECT_TRUE(desk.defaults.flags.at("MineOnly"));
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(store().focus(), "f1");
  store().setMineOnly(false);
  EXPECT_FALSE(desk.defaults.flags.at("MineOnly"));
}

TEST_F(Selection, FollowsAChangeOfQueueWhichIsKept) {
  show({ticketOf("t1"), in("reprint", ticketOf("t2"))});
  store().selection.set({"t1"});
  store().focus.set("f1");
  store().setQueue("reprint");
  EXPECT_EQ(store().queue(), "reprint");
  EXPECT_EQ(desk.defaults.texts.at("Queue"), "reprint");
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
  EXPECT_FALSE(store().focus());
}

TEST_F(Selection, StaysWithItsFocusWhenTheQueueHoldsIt) {
  show({dueAt(1, ticketOf("earlier")), ticketOf("t1", "reviewed")});
  store().selection.set({"t1"});
  store().focus.set("f1");
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(store().focus(), "f1");
}

TEST_F(Selection, OfSeveralTicketsGivesWayToOne) {
  show({ticketOf("t1"), ticketOf("t2")});
  store().selection.set({"t1", "t2"});
  store().focus.set("f1");
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_FALSE(store().focus());
}

TEST_F(Selection, StaysEmptyOverAnEmptyQueueAndClearsTheFocus) {
  show({});
  store().focus.set("f1");
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), IsEmpty());
  EXPECT_FALSE(store().focus());
}

TEST_F(Selection, IsEmptiedWhenItsTicketLeftAndNoneIsLeft) {
  show({});
  store().selection.set({"gone"});
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), IsEmpty());
}

TEST_F(Selection, TakesMineOnlyIntoAccount) {
  show({ticketOf("t1"), assignedTo("renny@tessarine.example", ticketOf("t2"))});
  store().setMineOnly(true);
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
}

TEST_F(Selection, HasAFindingThatIsPressedOnAndOff) {
  store().toggleFocus("f1");
  EXPECT_EQ(store().focus(), "f1");
  store().toggleFocus("f2");
  EXPECT_EQ(store().focus(), "f2");
  store().toggleFocus("f2");
  EXPECT_FALSE(store().focus());
  store().toggleFocus("f1");
  store().clearFocus();
  EXPECT_FALSE(store().focus());
}

struct ChoiceCase {
  const char* name;
  std::vector<FileItem> files;
  const char* chosen;
};
BOOST_DESCRIBE_STRUCT(ChoiceCase, (), (name, files, chosen))

class ChosenTicket : public Selection, public testing::WithParamInterface<ChoiceCase> {};

TEST_P(ChosenTicket, IsTheOpenOneThatIsDueFirst) {
  show(GetParam().files);
  store().reconcileSelection();
  EXPECT_THAT(store().selection(), ElementsAre(GetParam().chosen));
}

INSTANTIATE_TEST_SUITE_P(
    All, ChosenTicket,
    testing::Values(
        ChoiceCase{"EarliestDue",
                   {dueAt(30, ticketOf("a")), dueAt(10, ticketOf("b")), dueAt(20, ticketOf("c"))},
                   "b"},
        ChoiceCase{"ReviewedDoNotCount",
                   {dueAt(1, ticketOf("a", "reviewed")), dueAt(9, ticketOf("b", "in_review"))},
                   "b"},
        ChoiceCase{"AnyDueBeatsNone", {ticketOf("a"), dueAt(9e15, ticketOf("b"))}, "b"},
        ChoiceCase{"HugeDueBeatsNone", {ticketOf("a"), dueAt(1e308, ticketOf("b"))}, "b"},
        ChoiceCase{"FirstOfTwoWithoutDue", {ticketOf("a"), ticketOf("b")}, "a"},
        ChoiceCase{"FirstOfTwoWithEqualDue",
                   {dueAt(9, ticketOf("z")), dueAt(9, ticketOf("a")), dueAt(10, ticketOf("c"))},
                   "z"},
        ChoiceCase{"NegativeDue", {dueAt(0, ticketOf("a")), dueAt(-5, ticketOf("b"))}, "b"},
        ChoiceCase{
            "AllReviewed", {ticketOf("a", "reviewed"), dueAt(1, ticketOf("b", "reviewed"))}, "a"},
        ChoiceCase{"OtherQueueDoesNotCount",
                   {in("reprint", dueAt(1, ticketOf("a"))), ticketOf("b", "reviewed")},
                   "b"},
        ChoiceCase{"ReviewedIsCaseSensitive",
                   {ticketOf("a", "reviewed"), ticketOf("b", "Reviewed")},
                   "b"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
