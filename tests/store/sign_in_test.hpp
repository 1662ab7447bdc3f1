// Somebody who is not signed in, and a service that knows the code of their sign-in.
#pragma once

#include "store/store_test.hpp"

namespace vellix {

inline constexpr const char* kCallback = "sorel://signed-in?code=abc&state=s1";
inline constexpr const char* kExchangeLine = "POST api/login/exchange";
inline constexpr const char* kExchangeAnswer =
    R"({"token":"fresh","me":{"email":"renny@tessarine.example","name":"Renny Vale"}})";

class SignInTest : public StoreTest {
 protected:
  SignInTest() : StoreTest(std::nullopt) {
    serveBoard(boardOf({}));
    routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
  }
  void expectStillOut() {
    EXPECT_FALSE(store().signedIn());
    EXPECT_FALSE(store().looping());
    EXPECT_FALSE(desk.api.token());
    EXPECT_EQ(polls(), 0U);
  }
};

// A link and what the service says to its code, and what the toast says then.
struct FailedSignIn {
  const char* name;
  const char* url;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(FailedSignIn, (), (name, url, text))
inline std::string nameOf(const testing::TestParamInfo<FailedSignIn>& each) {
  return each.param.name;
}

// The same however the link came.
inline std::vector<FailedSignIn> failedSignIns() {
  return {{"NoCode", "sorel://signed-in", answerOf(200),
           "That sign-in did not come through. Try again."},
          {"Refused", kCallback, answerOf(400, R"({"error":"Code used."})"), "Code used."},
          {"Broken", kCallback, answerOf(500), kRefusedText},
          {"Unknown", kCallback, answerOf(401), kSignedOutText},
          {"Offline", kCallback, std::unexpected(HttpError::notConnected), kOfflineText}};
}

}  // namespace vellix
