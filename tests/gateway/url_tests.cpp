#include "gateway/url.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(PercentEncoding, KeepsLettersDigitsAndWhatItIsToldToKeep) {
  EXPECT_EQ(percentEncode("aZ09-._~"), "aZ09-._~");
  EXPECT_EQ(percentEncode("aZ09-._~", ""), "aZ09%2D%2E%5F%7E");
  EXPECT_EQ(percentEncode("a b&c=d+e/f%20"), "a%20b%26c%3Dd%2Be%2Ff%2520");
}

TEST(PercentEncoding, WritesEveryByteOfOtherScripts) {
  EXPECT_EQ(percentEncode("é漢", ""), "%C3%A9%E6%BC%A2");
  EXPECT_EQ(percentEncode(std::string{"\0\r\n\x7f\xff", 5}), "%00%0D%0A%7F%FF");
}

TEST(PercentDecoding, UndoesTheEncodingOfEveryByte) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(percentDecode(percentEncode(all)), all);
  EXPECT_EQ(percentDecode(percentEncode(all, "")), all);
}

TEST(PercentDecoding, LeavesBrokenEscapesAsTheyStand) {
  for (const char* text : {"%", "%4", "%%", "%G1", "%1G", "a%", "a%2", "%-1"}) {
    EXPECT_EQ(percentDecode(text), text);
  }
  EXPECT_EQ(percentDecode("%%41"), "%A");
  EXPECT_EQ(percentDecode("%41"), "A");
  EXPECT_EQ(percentDecode("%2f%2F"), "//");
  EXPECT_EQ(percentDecode("a+b"), "a+b");
}

struct WebCase {
  const char* text;
  bool isOne;
};
BOOST_DESCRIBE_STRUCT(WebCase, (), (text, isOne))

class WebUrls : public testing::TestWithParam<WebCase> {};

TEST_P(WebUrls, AreToldFromOtherText) {
  EXPECT_EQ(isWebUrl(GetParam().text), GetParam().isOne) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    All, WebUrls,
    testing::Values(WebCase{"https://a.example", true}, WebCase{"http://127.0.0.1:8080/x", true},
                    WebCase{"HTTPS://A.EXAMPLE/", true}, WebCase{"http://[::1]:80", true},
                    WebCase{"https://user@a.example", true}, WebCase{"", false},
                    WebCase{"not a url", false}, WebCase{"a.example", false},
                    WebCase{"https://", false}, WebCase{"https:///path", false},
                    WebCase{"https:a.example", false}, WebCase{"file:///etc/passwd", false},
                    WebCase{"ftp://a.example", false}, WebCase{"javascript:alert(1)", false},
                    WebCase{"https://a .example", false}, WebCase{" https://a.example", false},
                    WebCase{"https://a.example\n", false}, WebCase{"https://a\texample", false},
                    WebCase{"https://a\x7f", false}, WebCase{"://a", false},
                    WebCase{"https://?x", false}, WebCase{"https://#x", false},
                    WebCase{"https://:80", false}));

INSTANTIATE_TEST_SUITE_P(
    Ports, WebUrls,
    testing::Values(WebCase{"https://a:1", true}, WebCase{"https://a:65535", true},
                    WebCase{"https://a:", true}, WebCase{"https://a:0080", true},
                    WebCase{"https://a:0", false}, WebCase{"https://a:65536", false},
                    WebCase{"https://a:99999", false}, WebCase{"https://a:4294967376", false},
                    WebCase{"https://a:x", false}, WebCase{"https://a:8x", false},
                    WebCase{"https://a:-1", false}, WebCase{"https://a:+80", false},
                    WebCase{"https://a:80:90", false}, WebCase{"http://[::1]:x", false},
                    WebCase{"https://a:x?y", false}, WebCase{"https://a:x#y", false}));

INSTANTIATE_TEST_SUITE_P(
    Hosts, WebUrls,
    testing::Values(WebCase{"http://[::ffff:1.2.3.4]", true}, WebCase{"http://a-b_c.d.", true},
                    WebCase{"http://b\xC3\xBC"
                            "cher.example",
                            true},
                    WebCase{"http://a?x=1", true}, WebCase{"http://[::1", false},
                    WebCase{"http://[::1]x", false}, WebCase{"http://[]", false},
                    WebCase{"http://[1:2]", false}, WebCase{"http://a]", false},
                    WebCase{"http://a[1]", false}, WebCase{"http://::1", false},
                    WebCase{"http://a..b", false}, WebCase{"http://.", false},
                    WebCase{"http://-a", false}, WebCase{"http://a-", false},
                    WebCase{"http://a'b", false}, WebCase{"http://a%20b", false},
                    WebCase{"http://u@v@a", false}, WebCase{"http://u[@a", false},
                    WebCase{"http://a<b", false}));

INSTANTIATE_TEST_SUITE_P(
    Paths, WebUrls,
    testing::Values(WebCase{"http://a/b%20c", true}, WebCase{"http://a/%C3%a9", true},
                    WebCase{"http://a/(b)[c]", true}, WebCase{"http://a/b%", false},
                    WebCase{"http://a/b%2", false}, WebCase{"http://a/b%2g", false},
                    WebCase{"http://a/\"b", false}, WebCase{"http://a/<b", false},
                    WebCase{"http://a/b>", false}, WebCase{"http://a/b\\c", false},
                    WebCase{"http://a/b^", false}, WebCase{"http://a/`b", false},
                    WebCase{"http://a/{b", false}, WebCase{"http://a/b|c", false},
                    WebCase{"http://a/b}", false}, WebCase{"http://a/b c", false}));

TEST(LongHosts, AreNoWebUrls) {
  EXPECT_TRUE(isWebUrl("http://" + std::string(63, 'a') + ".example"));
  EXPECT_FALSE(isWebUrl("http://" + std::string(64, 'a') + ".example"));
  std::string many = "http://a";
  for (int i = 0; i < 200; ++i) many += ".a";
  EXPECT_FALSE(isWebUrl(many));
}

TEST(LinkTargets, AreWebUrlsAndMailAddresses) {
  for (const auto& [text, isOne] :
       {WebCase{"https://a.example/x", true}, WebCase{"HTTP://a.example", true},
        WebCase{"mailto:proofs@a.example", true}, WebCase{"MailTo:a@b?subject=x", true},
        WebCase{"mailto:", false}, WebCase{"mailto:a b", false}, WebCase{"mailto", false},
        WebCase{"", false}, WebCase{"proofs@a.example", false}, WebCase{"file:///etc", false},
        WebCase{"sorel://signed-in?code=1", false}, WebCase{"javascript:alert(1)", false},
        WebCase{"https://", false}}) {
    EXPECT_EQ(isLinkTarget(text), isOne) << text;
  }
}

struct PathCase {
  const char* base;
  const char* path;
  const char* url;
};
BOOST_DESCRIBE_STRUCT(PathCase, (), (base, path, url))

class AppendedPaths : public testing::TestWithParam<PathCase> {};

TEST_P(AppendedPaths, StandBehindTheBaseWithOneSlashBetween) {
  EXPECT_EQ(appendPath(GetParam().base, GetParam().path), GetParam().url);
}

INSTANTIATE_TEST_SUITE_P(
    All, AppendedPaths,
    testing::Values(PathCase{"https://a", "api/state", "https://a/api/state"},
                    PathCase{"https://a/", "api/state", "https://a/api/state"},
                    PathCase{"https://a/vellix//", "api/state", "https://a/vellix/api/state"},
                    PathCase{"https://a?x=1", "api", "https://a/api"},
                    PathCase{"https://a/b#c", "api", "https://a/b/api"},
                    PathCase{"https://a", "api/blob/p/1 2?.jpg#x%",
                             "https://a/api/blob/p/1%202%3F.jpg%23x%25"},
                    PathCase{"https://a", "api/files/a\r\nb", "https://a/api/files/a%0D%0Ab"},
                    PathCase{"https://a", "api/é", "https://a/api/%C3%A9"}));

TEST(QueryItems, AreEncodedAndTakeThePlaceOfTheUrlsOwn) {
  EXPECT_EQ(withQuery("https://a/b", {}), "https://a/b");
  EXPECT_EQ(withQuery("https://a/b?old=1#f", {}), "https://a/b?old=1#f");
  EXPECT_EQ(withQuery("https://a/b", {{"v", "3"}}), "https://a/b?v=3");
  EXPECT_EQ(withQuery("https://a/b?old=1#f", {{"v", "3"}}), "https://a/b?v=3");
  EXPECT_EQ(withQuery("https://a", {{"a b", "c&d=e"}, {"z", "é#"}}),
            "https://a?a%20b=c%26d%3De&z=%C3%A9%23");
  EXPECT_EQ(withQuery("https://a", {{"z", "1"}, {"a", "+%"}, {"z", "\"\n"}}),
            "https://a?z=1&a=%2B%25&z=%22%0A");
}

TEST(ParsedUrls, GiveSchemeAndHostInLowerCase) {
  const auto parts = parseUrl("SOREL://Signed-In?code=A");
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->scheme, "sorel");
  EXPECT_EQ(parts->host, "signed-in");
}

struct HostCase {
  const char* url;
  const char* host;
};
BOOST_DESCRIBE_STRUCT(HostCase, (), (url, host))

class ParsedHosts : public testing::TestWithParam<HostCase> {};

TEST_P(ParsedHosts, AreWhatTheUrlTrulyNames) {
  const auto parts = parseUrl(GetParam().url);
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->host, GetParam().host);
}

INSTANTIATE_TEST_SUITE_P(All, ParsedHosts,
                         testing::Values(HostCase{"sorel://signed-in", "signed-in"},
                                         HostCase{"sorel://signed-in/", "signed-in"},
                                         HostCase{"sorel://signed-in:80/x", "signed-in"},
                                         HostCase{"sorel://signed-in@other", "other"},
                                         HostCase{"sorel://a:b@signed-in", "signed-in"},
                                         HostCase{"sorel://other?//signed-in", "other"},
                                         HostCase{"sorel://other#//signed-in", "other"},
                                         HostCase{"sorel:signed-in", ""},
                                         HostCase{"sorel:/signed-in", ""},
                                         HostCase{"sorel:///signed-in", ""},
                                         HostCase{"http://[::1]:80/", "[::1]"},
                                         HostCase{"http://[::1", "[::1"}, HostCase{"sorel://", ""},
                                         HostCase{"sorel://@", ""}, HostCase{"sorel://:", ""}));

TEST(ParsedUrls, AreNoneWithoutAScheme) {
  for (const char* text : {"", ":", "://x", "signed-in", "//signed-in?code=1"}) {
    EXPECT_FALSE(parseUrl(text)) << text;
  }
}

TEST(ParsedUrls, KeepQueryItemsInOrderDecoded) {
  const auto parts =
      parseUrl("sorel://h?code=a%20b&flag&code=second&empty=&=nameless&&x=1=2#code=3");
  ASSERT_TRUE(parts);
  EXPECT_THAT(parts->query,
              ElementsAre(Pair("code", "a b"), Pair("flag", std::nullopt), Pair("code", "second"),
                          Pair("empty", ""), Pair("", "nameless"), Pair("x", "1=2")));
  EXPECT_EQ(**parts->item("code"), "a b");
  ASSERT_TRUE(parts->item("flag"));
  EXPECT_FALSE(parts->item("flag")->has_value());
  EXPECT_FALSE(parts->item("missing"));
}

TEST(Origins, AreSchemeHostAndPortInOneSpelling) {
  EXPECT_EQ(originOf("https://a.example"), "https://a.example");
  EXPECT_EQ(originOf("HTTPS://u:p@A.Example:443/x?y#z"), "https://a.example");
  EXPECT_EQ(originOf("http://a.example:80"), "http://a.example");
  EXPECT_EQ(originOf("http://a.example:"), "http://a.example");
  EXPECT_EQ(originOf("http://a.example:443"), "http://a.example:443");
  EXPECT_EQ(originOf("https://[::1]:8443/"), "https://[::1]:8443");
}

TEST(ParsedUrls, TakeHostileLengthsInStride) {
  std::string many = "sorel://h?";
  for (int i = 0; i < 20'000; ++i) many += "&a=%";
  const auto parts = parseUrl(many);
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->query.size(), 20'000U);
  EXPECT_EQ(parseUrl("sorel://" + std::string(1'000'000, 'a'))->host.size(), 1'000'000U);
}

}  // namespace
}  // namespace vellix
