// Records are values: equal in all fields or not equal, and hashed to match.
#include <unordered_set>

#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

void change(std::string& value) { value += "x"; }
void change(Int& value) { value += 1; }
void change(double& value) { value += 1; }
void change(bool& value) { value = !value; }
template <class T>
void change(std::optional<T>& value) {
  if (value)
    value.reset();
  else
    value.emplace();
}
template <class T>
void change(std::vector<T>& value) {
  if (value.empty())
    value.emplace_back();
  else
    value.pop_back();
}
template <class T>
void change(std::map<std::string, T>& value) {
  if (value.empty())
    value.emplace("key", T{});
  else
    value.clear();
}
template <Described T>
void change(T& value) {
  forEachMember<T>([&](auto member) { change(value.*member.pointer); });
}

// The value with one field changed, once for every field.
template <class T>
std::vector<T> variantsOf(const T& value) {
  std::vector<T> variants;
  forEachMember<T>([&](auto member) { change(variants.emplace_back(value).*member.pointer); });
  return variants;
}

template <class T>
void expectIdentity(const T& value) {
  const std::hash<T> hash;
  const T copy = value;
  EXPECT_EQ(copy, value);
  EXPECT_EQ(hash(copy), hash(value));
  const auto variants = variantsOf(value);
  ASSERT_FALSE(variants.empty());
  for (std::size_t i = 0; i < variants.size(); ++i) {
    EXPECT_FALSE(variants[i] == value) << "with a change to field " << i;
    EXPECT_NE(hash(variants[i]), hash(value)) << "with a change to field " << i;
  }
}

template <class Host>
Host host(const std::string& name) {
  return decoded<Host>(fullDocument(name));
}

TEST(Identity, OfTheBoardAndItsPeople) {
  expectIdentity(host<BoardState>("BoardState"));
  expectIdentity(host<BoardState>("Me").me);
  expectIdentity(host<BoardState>("Person").users.at(0));
  expectIdentity(host<BoardState>("Guest").guests->at(0));
  expectIdentity(host<BoardState>("Report").reports.at(0));
  expectIdentity(host<BoardState>("Event").events.at(0));
}

TEST(Identity, OfATicketAndItsParts) {
  expectIdentity(host<FileItem>("FileItem"));
  expectIdentity(*host<FileItem>("Links").links);
  expectIdentity(host<FileItem>("Ref").refs->at(0));
  expectIdentity(*host<FileItem>("Counts").counts);
  expectIdentity(*host<FileItem>("Tally").tally);
  expectIdentity(host<FileItem>("Page").pages->at(0));
  expectIdentity(host<FileItem>("RefPage").pages->at(1).refs->at("supplier"));
  expectIdentity(*host<FileItem>("ShareInfo").share);
}

TEST(Identity, OfAJobAndItsParts) {
  expectIdentity(host<Job>("Job"));
  expectIdentity(*host<Job>("JobArgs").args);
  expectIdentity(*host<Job>("JobResult").result);
  expectIdentity(*host<Job>("Summary").summary);
}

TEST(Identity, OfADetailAndItsParts) {
  expectIdentity(host<FileDetail>("FileDetail"));
  expectIdentity(host<FileDetail>("Finding").findings.at(0));
  expectIdentity(host<FileDetail>("Note").comments.at(0));
  expectIdentity(host<FileDetail>("Version").versions->at(0));
  expectIdentity(*host<FileDetail>("Approval").approval);
  expectIdentity(host<FileDetail>("Answer").approval->answers.at("kay"));
  expectIdentity(*host<FileDetail>("Origin").origin);
}

TEST(Identity, OfTheFiguresAndTheRest) {
  expectIdentity(host<Stats>("Stats"));
  expectIdentity(host<Stats>("PersonStats").users.at("ann@x.example"));
  expectIdentity(host<Stats>("WeekCount").users.at("ann@x.example").weekly.at(0));
  expectIdentity(host<Stats>("Mention").users.at("ann@x.example").mentions.at(0));
  expectIdentity(host<VersionInfo>("VersionInfo"));
  expectIdentity(host<SignInAnswer>("SignInAnswer"));
}

TEST(Identity, RecordsServeAsKeysOfASet) {
  const auto ticket = host<FileItem>("FileItem");
  const auto variants = variantsOf(ticket);
  std::unordered_set<FileItem> set{variants.begin(), variants.end()};
  set.insert(variants.begin(), variants.end());
  EXPECT_EQ(set.size(), variants.size());
  EXPECT_FALSE(set.contains(ticket));
  set.insert(ticket);
  EXPECT_TRUE(set.contains(FileItem{ticket}));
}

TEST(Identity, NoneDiffersFromAnEmptyValue) {
  const Counts none;
  Counts zero;
  zero.pages = 0;
  EXPECT_NE(none, zero);
  EXPECT_NE(hashOf(none), hashOf(zero));
}

TEST(Identity, TheSameValueInAnotherFieldDiffers) {
  const Counts high{.pages = {}, .high = 1, .medium = {}, .low = {}, .expected = {}, .shown = {}};
  const Counts low{.pages = {}, .high = {}, .medium = {}, .low = 1, .expected = {}, .shown = {}};
  EXPECT_NE(high, low);
  EXPECT_NE(hashOf(high), hashOf(low));
}

TEST(Identity, BothZerosAreOneValue) {
  const WeekCount plus{.start = 0.0, .count = 1};
  const WeekCount minus{.start = -0.0, .count = 1};
  EXPECT_EQ(plus, minus);
  EXPECT_EQ(hashOf(plus), hashOf(minus));
}

}  // namespace
}  // namespace vellix::test
