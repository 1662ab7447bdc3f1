// The reviewers' figures and photos: what one does moves the own figures at once, and back.
#include <algorithm>

#include "demo_service.hpp"

namespace vellix::demo_tests {
namespace {

constexpr const char* kMe = "renny@tessarine.example";
constexpr const char* kOther = "jorvas@tessarine.example";

class People : public DemoService {
 protected:
  Stats stats() {
    const auto answer = get("/api/stats");
    const auto decoded = answer ? decode<Stats>(answer->body) : decode<Stats>("");
    EXPECT_TRUE(decoded);
    return decoded.value_or(Stats{});
  }
  PersonStats mine() { return stats().users[kMe]; }
  int act(const std::string& path, const std::string& body) { return statusOf(post(path, body)); }
  std::string photo() { return board().users.front().photo.value_or(""); }
  int put(const std::string& bytes) {
    return statusOf(client_.Put("/api/me/photo", headers(), bytes, "image/jpeg"));
  }
};

TEST_F(People, StandOneShortOfAMilestone) {
  const PersonStats me = mine();
  EXPECT_EQ(me.reviewed, 9);
  EXPECT_EQ(me.on_time, 8);
  EXPECT_EQ(me.on_time_rate, 89);
  EXPECT_EQ(me.issues, 24);
  EXPECT_EQ(me.notes, 24);
  EXPECT_EQ(me.streak, 0);
  EXPECT_FALSE(me.by_kind.contains("spots") || me.by_kind.contains("barcode"));
  const PersonStats other = stats().users[kOther];
  EXPECT_EQ(other.reviewed, 99);
  EXPECT_EQ(other.streak, 11);
  EXPECT_EQ(other.weekly.size(), 8U);
}

TEST_F(People, ReviewOneMoreAndTakeItBack) {
  const Stats before = stats();
  const PersonStats& was = before.users.at(kMe);
  ASSERT_EQ(act("/api/files/lanterns-cover/status", R"({"status":"reviewed"})"), 200);
  Stats after = stats();
  PersonStats& own = after.users[kMe];
  EXPECT_EQ(own.reviewed, was.reviewed + 1);
  EXPECT_EQ(own.reviewed_week, was.reviewed_week + 1);
  EXPECT_EQ(own.weekly.back().count, was.weekly.back().count + 1);
  EXPECT_EQ(own.on_time, was.on_time + 1);
  EXPECT_EQ(own.on_time_rate, 90);
  EXPECT_LT(own.avg_hours, was.avg_hours);
  EXPECT_EQ(own.open, was.open - 1);
  EXPECT_EQ(own.streak, 1);
  EXPECT_EQ(after.users[kOther], before.users.at(kOther));
  ASSERT_EQ(act("/api/files/lanterns-cover/status", R"({"status":"new"})"), 200);
  EXPECT_EQ(mine(), was);
}

TEST_F(People, ReviewLateWhatWasDueBefore) {
  const PersonStats was = mine();
  EXPECT_GE(was.overdue, 1);
  ASSERT_EQ(act("/api/files/salt-text/status", R"({"status":"reviewed"})"), 200);
  EXPECT_EQ(mine().on_time, was.on_time);
  EXPECT_EQ(mine().overdue, was.overdue - 1);
  ASSERT_EQ(act("/api/files/salt-text/status", R"({"status":"new"})"), 200);
  EXPECT_EQ(mine(), was);
}

TEST_F(People, CatchOneMoreIssueOrClearIt) {
  const PersonStats was = mine();
  const FileDetail lanterns = detail("lanterns-cover");
  const auto spot = std::ranges::find(lanterns.findings, "spots", &Finding::kind);
  ASSERT_NE(spot, lanterns.findings.end());
  const std::string path = "/api/findings/" + spot->id;
  ASSERT_EQ(act(path, R"({"state":"issue"})"), 200);
  EXPECT_EQ(mine().issues, was.issues + 1);
  EXPECT_EQ(mine().by_kind["spots"], 1);
  ASSERT_EQ(act(path, R"({"state":"fine"})"), 200);
  EXPECT_EQ(mine().fine, was.fine + 1);
  EXPECT_EQ(mine().issues, was.issues);
  ASSERT_EQ(act(path, R"({"state":"open"})"), 200);
  EXPECT_EQ(mine(), was);
}

TEST_F(People, WriteANoteThatTagsAnother) {
  const Stats before = stats();
  ASSERT_EQ(act("/api/comments", R"({"file_id":"carto-text","page":1,"text":"Look, please.",)"
                                 R"("tags":["jorvas@tessarine.example"]})"),
            200);
  Stats after = stats();
  EXPECT_EQ(after.users[kMe].notes, before.users.at(kMe).notes + 1);
  ASSERT_EQ(after.users[kOther].mentions.size(), before.users.at(kOther).mentions.size() + 1);
  const Mention mention = after.users[kOther].mentions.front();
  EXPECT_EQ(mention.file_id, "carto-text");
  EXPECT_EQ(mention.page, 1);
  EXPECT_EQ(mention.text, "Look, please.");
  EXPECT_EQ(mention.by, kMe);
  const std::string note = detail("carto-text").comments.back().id;
  ASSERT_EQ(act("/api/comments/" + note, R"({"deleted":true})"), 200);
  after = stats();
  EXPECT_EQ(after.users, before.users);
}

TEST_F(People, AreGivenWorkOfATrack) {
  const PersonStats was = mine();
  ASSERT_EQ(act("/api/files/bread-cover/assign", R"({"email":"renny@tessarine.example"})"), 200);
  EXPECT_EQ(mine().open, was.open + 1);
  EXPECT_EQ(mine().reprints, was.reprints + 1);
  ASSERT_EQ(act("/api/files/bread-cover/track", R"({"track":"new_title"})"), 200);
  EXPECT_EQ(mine().new_titles, was.new_titles + 1);
  ASSERT_EQ(act("/api/files/bread-cover/track", R"({"track":"reprint"})"), 200);
  ASSERT_EQ(act("/api/files/bread-cover/assign", R"({"email":"jorvas@tessarine.example"})"), 200);
  EXPECT_EQ(mine(), was);
}

TEST_F(People, ComeWithoutFiguresOrWithNoneYetAndLeave) {
  ASSERT_EQ(act("/demo/people", R"({"email":"ines@t.example","name":"Ines Moor"})"), 200);
  ASSERT_EQ(act("/demo/people", R"({"email":"ola@t.example","name":"Ola Berg","counted":false})"),
            200);
  EXPECT_EQ(board().users.size(), 4U);
  Stats now = stats();
  EXPECT_EQ(now.users["ines@t.example"].reviewed, 0);
  EXPECT_FALSE(now.users["ines@t.example"].on_time_rate);
  EXPECT_FALSE(now.users.contains("ola@t.example"));
  EXPECT_EQ(act("/demo/people", R"({"email":"ola@t.example","name":"Ola Berg"})"), 400);
  for (const char* who : {"ines@t.example", "ola@t.example"}) {
    EXPECT_EQ(act("/demo/people", std::string(R"({"gone":true,"email":")") + who + "\"}"), 200);
  }
  EXPECT_EQ(board().users.size(), 2U);
  EXPECT_EQ(act("/demo/people", R"({"gone":true,"email":"ola@t.example"})"), 404);
}

TEST_F(People, ShowANewPhotoToAll) {
  const std::string page = get("/api/blob/thumbs/salt-text/v1/p001.jpg")->body;
  ASSERT_EQ(put(page), 200);
  const std::string first = photo();
  EXPECT_EQ(get("/api/blob/" + first)->body, page);
  ASSERT_EQ(put(page), 200);
  EXPECT_NE(photo(), first);
  const std::string kept = photo();
  EXPECT_EQ(put("not a picture"), 400);
  EXPECT_EQ(put(""), 400);
  EXPECT_EQ(put("\xFF\xD8 and no more"), 400);
  EXPECT_EQ(put(page.substr(0, page.size() / 2)), 400) << "cut off";
  EXPECT_EQ(put(page + std::string(4'000'000, 'x')), 413);
  EXPECT_EQ(photo(), kept);
}

}  // namespace
}  // namespace vellix::demo_tests
