// What is said of the client's newest build: the truth, unless a test has it say something else.
#include "demo_service.hpp"
#include "gateway/api.hpp"

namespace vellix::demo_tests {
namespace {

class Feed : public DemoService {
 protected:
  void TearDown() override {
    (void)post("/demo/feed", "{}");
    DemoService::TearDown();
  }
  VersionInfo newest() {
    const auto answer = get("/version.json");
    const auto decoded = answer ? decode<VersionInfo>(answer->body) : decode<VersionInfo>("");
    EXPECT_TRUE(decoded) << (decoded ? "" : decoded.error().where + decoded.error().why);
    return decoded.value_or(VersionInfo{});
  }
  int say(const std::string& body) { return statusOf(post("/demo/feed", body)); }
  VersionInfo own() {
    return {API::shortVersion(), API::buildNumber(),
            "http://127.0.0.1:" + std::to_string(service_->port()) + "/download", std::nullopt,
            std::nullopt};
  }
};

TEST_F(Feed, KnowsOfNothingNewerAndAsksForNoSignIn) {
  EXPECT_EQ(newest(), own());
  token_.clear();
  EXPECT_EQ(newest(), own());
}

TEST_F(Feed, SaysWhatItIsTold) {
  ASSERT_EQ(say(R"({"version":"2.5","build":34,"url":"https://elsewhere.example/v.dmg",)"
                R"("notes":"Faster.","min_build":30})"),
            200);
  EXPECT_EQ(newest(), (VersionInfo{"2.5", 34, "https://elsewhere.example/v.dmg", "Faster.", 30}));
}

TEST_F(Feed, SaysTheTruthOfWhatItIsNotTold) {
  ASSERT_EQ(say(R"({"build":34,"notes":"Faster.","min_build":30})"), 200);
  ASSERT_EQ(say(R"({"build":35})"), 200);
  VersionInfo expected = own();
  expected.build = 35;
  EXPECT_EQ(newest(), expected);
  ASSERT_EQ(say("{}"), 200);
  EXPECT_EQ(newest(), own());
}

TEST_F(Feed, RefusesWhatIsNone) {
  for (const char* body :
       {"", "[]", R"({"build":"34"})", R"({"build":1.5})", R"({"build":2,"notes":7})",
        R"({"build":2,"min_build":"all"})", R"({"version":12})", R"({"url":null})"}) {
    EXPECT_EQ(say(body), 400) << body;
  }
  EXPECT_EQ(newest(), own()) << "it keeps what it said";
}

TEST_F(Feed, LeadsToAPageThatSaysWhatWouldBeThere) {
  ASSERT_EQ(say(R"({"version":"2 <b>","build":34,"notes":"Proofs & covers."})"), 200);
  token_.clear();
  const auto page = get("/download");
  ASSERT_EQ(statusOf(page), 200);
  EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
  EXPECT_NE(page->body.find("Vellix 2 &lt;b&gt; (34)"), std::string::npos) << page->body;
  EXPECT_NE(page->body.find("Proofs &amp; covers."), std::string::npos) << page->body;
  EXPECT_NE(page->body.find("nothing is downloaded"), std::string::npos) << page->body;
}

TEST_F(Feed, BreaksWhenAskedTo) {
  const auto breaks = [&](const std::string& how) {
    EXPECT_EQ(statusOf(post("/demo/faults", R"([{"path":"/version.json",)" + how + "}]")), 200);
    return get("/version.json");
  };
  EXPECT_EQ(statusOf(breaks(R"("status":500)")), 500);
  EXPECT_FALSE(decode<VersionInfo>(breaks(R"("garbage":true)")->body));
  EXPECT_FALSE(breaks(R"("cut":true)"));
  EXPECT_EQ(newest(), own());
}

}  // namespace
}  // namespace vellix::demo_tests
