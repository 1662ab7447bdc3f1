#include "approval/approvers.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kDomain = "tessarine.example";

struct TypedCase {
  const char* name;
  std::string typed;
  std::optional<std::string> address;
};
BOOST_DESCRIBE_STRUCT(TypedCase, (), (name, typed, address))

class TypedAddresses : public testing::TestWithParam<TypedCase> {};

TEST_P(TypedAddresses, AreTheCompanysOrNone) {
  EXPECT_EQ(companyAddress(GetParam().typed), GetParam().address);
}

INSTANTIATE_TEST_SUITE_P(
    All, TypedAddresses,
    testing::Values(
        TypedCase{"Plain", "mara@" + kDomain, "mara@" + kDomain},
        TypedCase{"CapitalsAndBlanks", " \tMARA@" + kDomain + " \n", "mara@" + kDomain},
        TypedCase{"CapitalsInTheDomain", "mara@TESSARINE.example", "mara@tessarine.example"},
        TypedCase{"AllThatIsAllowed", "a.b_c%d+e-9@" + kDomain, "a.b_c%d+e-9@" + kDomain},
        TypedCase{"WideBlanks", "\u00a0mara@" + kDomain + "\u3000", "mara@" + kDomain},
        TypedCase{"Empty", "", std::nullopt}, TypedCase{"Blanks", "  ", std::nullopt},
        TypedCase{"NoLocalPart", "@" + kDomain, std::nullopt},
        TypedCase{"NoDomain", "mara@", std::nullopt}, TypedCase{"NoAt", "mara", std::nullopt},
        TypedCase{"TwoAts", "mara@x@" + kDomain, std::nullopt},
        TypedCase{"AnotherDomain", "mara@elsewhere.example", std::nullopt},
        TypedCase{"LongerDomain", "mara@" + kDomain + ".org", std::nullopt},
        TypedCase{"DomainWithinAnother", "mara@not" + kDomain, std::nullopt},
        TypedCase{"SubDomain", "mara@mail." + kDomain, std::nullopt},
        TypedCase{"BlankWithin", "ma ra@" + kDomain, std::nullopt},
        TypedCase{"TwoLines", "mara@" + kDomain + "\nolo@" + kDomain, std::nullopt},
        TypedCase{"LetterBeyondAscii", "mär@" + kDomain, std::nullopt},
        TypedCase{"LetterThatLowersToAscii", "\u212aim@" + kDomain, std::nullopt},
        TypedCase{"WithAName", "Mara <mara@" + kDomain + ">", std::nullopt}),
    [](const auto& each) { return each.param.name; });

class Approvers : public ApprovalTest {};

TEST_F(Approvers, AreListedInTheBoardsOrder) {
  EXPECT_EQ(approversSection(store(), ""),
            (ApproversSectionView{.here = true,
                                  .rows = {{kMara, "Mara Quell", "Remove Mara Quell"},
                                           {kOlo, "Olo Brandt", "Remove Olo Brandt"},
                                           {kTeva, "teva", "Remove teva"}},
                                  .none = "",
                                  .example = "name@" + kDomain,
                                  .canAdd = false,
                                  .saving = false}));
}

TEST_F(Approvers, SayThatThereAreNone) {
  for (const auto& none : {std::optional<std::vector<Guest>>{}, {std::vector<Guest>{}}}) {
    board.approvers = none;
    publish();
    EXPECT_EQ(approversSection(store(), "").none, "No key approvers yet.");
    EXPECT_THAT(approversSection(store(), "").rows, IsEmpty());
  }
}

TEST_F(Approvers, AreNotToldOfWithoutABoard) {
  store().board.set(std::nullopt);
  EXPECT_EQ(approversSection(store(), "rina@" + kDomain),
            (ApproversSectionView{.here = false,
                                  .rows = {},
                                  .none = "",
                                  .example = "name@" + kDomain,
                                  .canAdd = false,
                                  .saving = false}));
}

TEST_F(Approvers, CanBeAddedByAnAddressWhileNothingIsSaved) {
  EXPECT_TRUE(approversSection(store(), "RINA@" + kDomain).canAdd);
  EXPECT_FALSE(approversSection(store(), "rina@elsewhere.example").canAdd);
  removeApprover(store(), kOlo);
  EXPECT_FALSE(approversSection(store(), "rina@" + kDomain).canAdd);
}

TEST_F(Approvers, AreSavedAsAWhole) {
  EXPECT_TRUE(addApprover(store(), " RINA@" + kDomain, " Rina Sol "));
  EXPECT_THAT(
      asked(),
      ElementsAre(
          R"(POST api/approvers {"approvers":[{"email":"mara@tessarine.example","name":"Mara Quell"},)"
          R"({"email":"olo@tessarine.example","name":"Olo Brandt"},)"
          R"({"email":"teva@tessarine.example","name":""},)"
          R"({"email":"rina@tessarine.example","name":"Rina Sol"}]})"));
}

TEST_F(Approvers, HaveNoNameOfBlanks) {
  board.approvers.reset();
  publish();
  const auto added = addApprover(store(), "rina@" + kDomain, " \t");
  ASSERT_TRUE(added);
  EXPECT_EQ(added->name, std::nullopt);
  EXPECT_THAT(asked(), ElementsAre(R"(POST api/approvers {"approvers":[)"
                                   R"({"email":"rina@tessarine.example","name":""}]})"));
}

TEST_F(Approvers, AreNotSavedWhenTheyAreKnown) {
  const auto known = addApprover(store(), "MARA@" + kDomain, "Somebody Else");
  ASSERT_TRUE(known);
  EXPECT_EQ(known->email, kMara);
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(Approvers, AreNotAddedByAnythingElse) {
  EXPECT_FALSE(canAddApprover(store(), "rina@elsewhere.example"));
  EXPECT_FALSE(addApprover(store(), "rina@elsewhere.example", "Rina"));
  store().board.set(std::nullopt);
  EXPECT_FALSE(canAddApprover(store(), "rina@" + kDomain));
  EXPECT_FALSE(addApprover(store(), "rina@" + kDomain, "Rina"));
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(Approvers, WaitWhileTheListIsBeingSaved) {
  removeApprover(store(), kOlo);
  EXPECT_TRUE(approversSection(store(), "").saving);
  removeApprover(store(), kMara);
  EXPECT_FALSE(canAddApprover(store(), "rina@" + kDomain));
  EXPECT_FALSE(addApprover(store(), "rina@" + kDomain, ""));
  EXPECT_EQ(asked().size(), 1U) << "the second list would bring back who went with the first";
}

TEST_F(Approvers, GoWithoutAnyOfTheirAddress) {
  board.approvers = std::vector<Guest>{{.email = kMara}, {.email = kMara, .name = "Twice"}};
  publish();
  EXPECT_EQ(approversSection(store(), "").rows.size(), 1U);
  removeApprover(store(), kMara);
  EXPECT_THAT(asked(), ElementsAre(R"(POST api/approvers {"approvers":[]})"));
}

// The poll behind a list that was saved fails: the next list is made from it all the same.
TEST_F(Approvers, AreNotLostWithThePollBehindThem) {
  routes.set(kStateLine, answerOf(500));
  ASSERT_TRUE(addApprover(store(), "ada@" + kDomain, "Ada"));
  routes.set("POST api/approvers", answerOf(200, "{}"));
  desk.time.run();
  ASSERT_FALSE(isSavingApprovers(store()));
  ASSERT_TRUE(store().problem());
  EXPECT_EQ(approversSection(store(), "").rows.back().email, "ada@" + kDomain);
  ASSERT_TRUE(addApprover(store(), "ben@" + kDomain, "Ben"));
  EXPECT_THAT(asked().back(),
              testing::HasSubstr(R"({"email":"teva@tessarine.example","name":""},)"
                                 R"({"email":"ada@tessarine.example","name":"Ada"},)"
                                 R"({"email":"ben@tessarine.example","name":"Ben"})"));
}

TEST_F(Approvers, StayAsTheyWereWhenTheListIsRefused) {
  routes.set("POST api/approvers", answerOf(409, R"({"error":"Not you."})"));
  removeApprover(store(), kOlo);
  desk.time.run();
  EXPECT_EQ(approversSection(store(), "").rows.size(), 3U);
}

TEST_F(Approvers, AreNotRemovedWhenTheyAreGone) {
  removeApprover(store(), "rina@" + kDomain);
  EXPECT_THAT(asked(), IsEmpty());
}

}  // namespace
}  // namespace vellix
