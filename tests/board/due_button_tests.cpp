// When the review is due: the button and what its popover tells.
#include "board/due_button.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3'600;
constexpr double kDay = 86'400;

// Tuesday, 14 November 2023, 10:20:30.
const Moment kNow = momentOf(1'699'957'230'000);

Moment after(double seconds) { return kNow + Milliseconds{seconds * 1'000}; }
double wireAfter(double seconds) { return wireOf(after(seconds)); }

class DueButtons : public StoreTest {
 protected:
  DueButtons() { store().board.set(boardOf({})); }
  DueButtonView view(const FileItem& file, Moment now = kNow) {
    return dueButton(store(), file, now, desk.calendar);
  }
};

struct Labelled {
  const char* name;
  const char* status;
  std::optional<double> ahead;  // seconds to the due date
  const char* text;
  bool chip;
};
BOOST_DESCRIBE_STRUCT(Labelled, (), (name, status, ahead, text, chip))

class DueLabels : public DueButtons, public testing::WithParamInterface<Labelled> {};

TEST_P(DueLabels, AreTheChipOrAWord) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1", each.status);
  if (each.ahead) file.due = wireAfter(*each.ahead);
  EXPECT_EQ(view(file).text, each.text);
  EXPECT_EQ(view(file).chip, each.chip ? dueChip(file, kNow, desk.calendar) : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    All, DueLabels,
    testing::Values(Labelled{"Reviewed", "reviewed", 2 * kHour, "Reviewed", false},
                    Labelled{"ReviewedWithoutDate", "reviewed", std::nullopt, "Reviewed", false},
                    Labelled{"WithoutDate", "new", std::nullopt, "Set due", false},
                    Labelled{"InReviewWithoutDate", "in_review", std::nullopt, "Set due", false},
                    Labelled{"Late", "new", -2 * kHour, "Overdue 2 hr", true},
                    Labelled{"Ahead", "in_review", 2 * kHour, "Due today 12:20 PM", true},
                    Labelled{"OfAnotherStatus", "mystery", 2 * kDay, "Due Thu 10:20 AM", true}),
    [](const auto& each) { return each.param.name; });

struct Latest {
  const char* name;
  std::optional<double> received;  // seconds from now
  std::optional<double> deadline;
  const char* late;
  const char* explanation;
};
BOOST_DESCRIBE_STRUCT(Latest, (), (name, received, deadline, late, explanation))

class LatestDates : public DueButtons, public testing::WithParamInterface<Latest> {};

TEST_P(LatestDates, AreExplained) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1");
  if (each.received) file.received = wireAfter(*each.received);
  if (each.deadline) file.deadline = wireAfter(*each.deadline);
  EXPECT_EQ(view(file).late, each.late);
  EXPECT_EQ(view(file).explanation, each.explanation);
}

INSTANTIATE_TEST_SUITE_P(
    All, LatestDates,
    testing::Values(
        Latest{"NotReceived", std::nullopt, std::nullopt, "",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Nov 16, 2023, 10:20 AM"},
        Latest{"NotReceivedWithADeadline", std::nullopt, -kDay, "",
               "Every review is due within 48 hours of the file coming in, or by the supplier's "
               "date when that's sooner. Latest: Nov 16, 2023, 10:20 AM"},
        Latest{"ADayAgo", -kDay, std::nullopt, "",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Nov 15, 2023, 10:20 AM"},
        Latest{"AtTheLastMoment", -2 * kDay, std::nullopt, "",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Nov 14, 2023, 10:20 AM"},
        Latest{"AMomentPast", -2 * kDay - 0.001, std::nullopt, "Its 48 hours ran out 1 min ago.",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Nov 14, 2023, 10:20 AM"},
        Latest{"HoursPast", -2 * kDay - 5 * kHour, kHour, "Its 48 hours ran out 5 hr ago.",
               "Every review is due within 48 hours of the file coming in, or by the supplier's "
               "date when that's sooner. Latest: Nov 14, 2023, 5:20 AM"},
        Latest{"DaysPast", -5 * kDay, std::nullopt, "Its 48 hours ran out 3 days ago.",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Nov 11, 2023, 10:20 AM"},
        Latest{"AcrossTheYear", 47 * kDay, std::nullopt, "",
               "Every review is due within 48 hours of the file coming in. "
               "Latest: Jan 2, 2024, 10:20 AM"}),
    [](const auto& each) { return each.param.name; });

TEST_F(DueButtons, LetPickFromThisMinuteToTheLatest) {
  FileItem file = ticketOf("t1");
  EXPECT_EQ(view(file).earliest, wireAfter(-30)) << "the minute that has begun";
  EXPECT_EQ(view(file).latest, wireAfter(2 * kDay - 30));
  EXPECT_EQ(view(file), view(file, after(29))) << "nothing changes within the minute";
  EXPECT_NE(view(file), view(file, after(30)));
  file.received = wireAfter(-kHour);
  EXPECT_EQ(view(file).latest, wireAfter(2 * kDay - kHour));
}

TEST_F(DueButtons, TellUrgencyAndWhoSetTheDate) {
  FileItem file = ticketOf("t1");
  EXPECT_FALSE(view(file).urgent);
  EXPECT_EQ(view(file).setBy, "");
  file.urgent = false;
  file.due_by = "";
  EXPECT_FALSE(view(file).urgent);
  EXPECT_EQ(view(file).setBy, "");
  file.urgent = true;
  file.due_by = "jorvas@tessarine.example";
  EXPECT_TRUE(view(file).urgent);
  EXPECT_EQ(view(file).setBy, "Set by Jorvas");
  file.due_by = "renny@tessarine.example";
  EXPECT_EQ(view(file).setBy, "Set by You");
}

TEST_F(DueButtons, RestWhileADueDateIsOnItsWay) {
  EXPECT_FALSE(view(ticketOf("t1")).busy);
  store().busy.set({"assign", "track", "status"});
  EXPECT_FALSE(view(ticketOf("t1")).busy);
  store().busy.set({"due"});
  EXPECT_TRUE(view(ticketOf("t1")).busy);
}

TEST_F(DueButtons, PickFromTheDateThatIsSet) {
  FileItem file = ticketOf("t1");
  EXPECT_EQ(firstPick(file, kNow), kNow);
  file.due = wireAfter(-kHour);
  EXPECT_EQ(firstPick(file, kNow), after(-kHour));
}

TEST_F(DueButtons, SetWhatIsStillPossible) {
  FileItem file = ticketOf("t1");
  EXPECT_EQ(dueToSet(file, after(kHour), kNow), after(kHour));
  EXPECT_EQ(dueToSet(file, after(-kHour), kNow), kNow) << "the pick has passed";
  EXPECT_EQ(dueToSet(file, after(9 * kDay), kNow), after(2 * kDay));
  file.received = wireAfter(-kDay);
  EXPECT_EQ(dueToSet(file, after(1.5 * kDay), kNow), after(kDay));
  file.received = wireAfter(-3 * kDay);
  EXPECT_EQ(dueToSet(file, after(kMinute), kNow), after(-kDay)) << "its time has run out";
}

TEST_F(DueButtons, HoldDatesFarAway) {
  FileItem file = ticketOf("t1");
  for (const double wire : {1e14, -1e13}) {
    file.due = wire;
    file.received = wire;
    EXPECT_FALSE(dueButton(store(), file, kNow, desk.calendar).explanation.empty());
  }
}

}  // namespace
}  // namespace vellix
