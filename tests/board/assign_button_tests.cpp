// Who reviews a ticket, and who may.
#include "board/assign_button.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kRenny = "renny@tessarine.example";
constexpr const char* kJorvas = "jorvas@tessarine.example";

class AssignButtons : public StoreTest {
 protected:
  AssignButtons() {
    BoardState board = boardOf({});
    board.users.push_back({.email = "jorvasson@b.c", .name = "Ada Lind"});
    board.users.push_back({.email = "not.jorvas@b.c", .name = "Ivo"});
    store().board.set(board);
  }
  AssignButtonView view(std::optional<std::string> assignee = std::nullopt,
                        std::optional<std::string> track = std::nullopt) {
    return assignButton(store(), ticket(std::move(assignee), std::move(track)));
  }
  static FileItem ticket(std::optional<std::string> assignee,
                         std::optional<std::string> track = std::nullopt) {
    FileItem file = ticketOf("t1");
    file.assignee = std::move(assignee);
    file.track = std::move(track);
    return file;
  }
  std::vector<std::string> sent() {
    desk.time.run();
    std::vector<std::string> all;
    for (const auto& each : desk.http.exchanges) {
      if (each.line().starts_with("POST")) {
        all.push_back(each.line() + " " + each.request.body.value_or(""));
      }
    }
    return all;
  }
};

using Lines = std::vector<std::string>;

TEST_F(AssignButtons, SayWhoReviews) {
  struct Row {
    std::optional<std::string> assignee;
    const char* text;
    const char* letter;  // of the avatar, empty for none
  };
  for (const Row& each : {Row{std::nullopt, "Assign", ""},
                          {"", "Assign", ""},
                          {kRenny, "You", "R"},
                          {kJorvas, "Jorvas", "J"},
                          {"eva.holm@else.c", "Eva.holm", "e"}}) {
    const auto shown = view(each.assignee);
    EXPECT_EQ(shown.text, each.text);
    EXPECT_EQ(shown.avatar ? shown.avatar->letter : "", each.letter) << each.text;
  }
}

TEST_F(AssignButtons, OfferThePeopleInTheBoardsOrder) {
  const auto people = view(kJorvas).people;
  Lines lines;
  for (const auto& one : people) {
    lines.push_back(one.name + "|" + one.usually + "|" + (one.chosen ? "x" : ""));
    EXPECT_EQ(one.avatar, avatarOf(one.email, store()));
  }
  EXPECT_EQ(lines, (Lines{"Renny Vale (you)|Usually new titles|", "Jorvas Lind|Usually reprints|x",
                          "Ada Lind|Usually reprints|", "Ivo|Usually new titles|"}));
  for (const auto& one : view().people) EXPECT_FALSE(one.chosen);
}

TEST_F(AssignButtons, OfferNobodyWithoutABoard) {
  store().board.set(std::nullopt);
  EXPECT_TRUE(view(kRenny).people.empty());
}

TEST_F(AssignButtons, NameTheOtherQueue) {
  EXPECT_EQ(view(kRenny, "reprint").move, "Move to New titles");
  EXPECT_EQ(view(kRenny, "new_title").move, "Move to Reprints");
  EXPECT_EQ(view(kRenny, std::nullopt).move, "Move to Reprints");
  EXPECT_EQ(view(kRenny, "atlas").move, "Move to Reprints");
}

TEST_F(AssignButtons, RestWhileAChangeIsOnItsWay) {
  EXPECT_FALSE(view().busy);
  for (const auto& [key, busy] :
       {std::pair{"assign", true}, {"track", true}, {"due", false}, {"status", false}}) {
    store().busy.set({key});
    EXPECT_EQ(view().busy, busy) << key;
  }
}

TEST_F(AssignButtons, SendTheChoice) {
  chooseReviewer(store(), ticket(kJorvas), kRenny);
  EXPECT_EQ(sent(), Lines{R"(POST api/files/t1/assign {"email":"renny@tessarine.example"})"});
}

TEST_F(AssignButtons, SendNothingForThePresentReviewer) {
  chooseReviewer(store(), ticket(kJorvas), kJorvas);
  EXPECT_EQ(sent(), Lines{});
  EXPECT_TRUE(store().busy().empty());
  chooseReviewer(store(), ticket(std::nullopt), kJorvas);
  EXPECT_EQ(sent().size(), 1U) << "nobody is somebody else";
}

TEST_F(AssignButtons, MoveToTheOtherQueue) {
  moveToOtherQueue(store(), ticket(kRenny, "reprint"));
  moveToOtherQueue(store(), ticket(kRenny, "new_title"));
  moveToOtherQueue(store(), ticket(kRenny));
  EXPECT_EQ(sent(), (Lines{R"(POST api/files/t1/track {"track":"new_title"})",
                           R"(POST api/files/t1/track {"track":"reprint"})",
                           R"(POST api/files/t1/track {"track":"reprint"})"}));
}

}  // namespace
}  // namespace vellix
