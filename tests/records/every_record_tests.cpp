// What holds for every record alike, told by the hand-written cases.
#include <algorithm>
#include <cctype>

#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

class EveryRecord : public testing::TestWithParam<RecordCase> {
 protected:
  const RecordCase& record() const { return GetParam(); }

  void accepts(const std::string& document, const std::string& same) const {
    const auto answer = record().recode(document);
    ASSERT_TRUE(answer) << answer.error().where << ": " << answer.error().why << "\n" << document;
    EXPECT_EQ(*answer, same) << "from " << document;
  }
  void refusesAt(const std::string& path, const std::string& document) const {
    const auto answer = record().recode(document);
    ASSERT_FALSE(answer) << document;
    EXPECT_EQ(answer.error().where, path) << document;
    EXPECT_FALSE(answer.error().why.empty());
  }
};

TEST_P(EveryRecord, DecodesInFullAndEncodesInDeclaredOrder) {
  const auto document = record().documentWith(record().fields);
  accepts(document, document);
}

TEST_P(EveryRecord, DecodesWithItsRequiredFieldsAloneAndLeavesTheRestOut) {
  const auto document = record().documentWith(requiredOf(record().fields));
  accepts(document, document);
}

TEST_P(EveryRecord, FailsWhereARequiredFieldIsMissing) {
  for (const auto& field : requiredOf(record().fields)) {
    refusesAt(record().pathTo(field.key),
              record().documentWith(without(record().fields, field.key)));
  }
}

TEST_P(EveryRecord, FailsWhereARequiredFieldIsNull) {
  for (const auto& field : requiredOf(record().fields)) {
    refusesAt(record().pathTo(field.key),
              record().documentWith(with(record().fields, field.key, "null")));
  }
}

TEST_P(EveryRecord, ReadsAMissingOrNullOptionalAsNone) {
  for (const auto& field : record().fields) {
    if (field.presence == Presence::required) continue;
    const auto left = record().documentWith(without(record().fields, field.key));
    accepts(left, left);
    accepts(record().documentWith(with(record().fields, field.key, "null")), left);
  }
}

std::vector<std::string> wrongFor(const std::string& value) {
  switch (value.front()) {
    case '"':
      return {"7", "1.5", "true", "{}", "[]"};
    case '[':
      return {"7", "true", "\"a\"", "{}", "[null]"};
    case '{':
      return {"7", "true", "\"a\"", "[]"};
    case 't':
    case 'f':
      return {"0", "1", "\"true\"", "{}", "[]"};
    default:
      return {"\"7\"", "true", "{}", "[]"};
  }
}

TEST_P(EveryRecord, FailsOnAValueOfTheWrongType) {
  for (const auto& field : record().fields) {
    for (const auto& wrong : wrongFor(field.value)) {
      refusesAt(record().pathTo(field.key) + (wrong == "[null]" ? "[0]" : ""),
                record().documentWith(with(record().fields, field.key, wrong)));
    }
  }
}

TEST_P(EveryRecord, TellsWholeNumbersFromOthers) {
  for (const auto& field : record().fields) {
    const bool number = std::isdigit(static_cast<unsigned char>(field.value.front()));
    const bool fraction = field.value.find('.') != std::string::npos;
    if (number && fraction) {
      const auto seven = record().documentWith(with(record().fields, field.key, "7"));
      accepts(seven, seven);
    } else if (number) {
      refusesAt(record().pathTo(field.key),
                record().documentWith(with(record().fields, field.key, "1.5")));
    }
  }
}

TEST_P(EveryRecord, IgnoresUnknownKeysWhereverTheyStand) {
  const auto full = record().documentWith(record().fields);
  const Field unknown{"later_addition", Presence::optional, R"({"a":[1,{"id":2}],"b":null})"};
  for (std::size_t at = 0; at <= record().fields.size(); ++at) {
    Fields more = record().fields;
    more.insert(more.begin() + static_cast<std::ptrdiff_t>(at), unknown);
    accepts(record().documentWith(more), full);
  }
}

TEST_P(EveryRecord, TakesItsKeysInAnyOrder) {
  Fields turned = record().fields;
  std::ranges::reverse(turned);
  accepts(record().documentWith(turned), record().documentWith(record().fields));
  std::ranges::rotate(turned, turned.begin() + 1);
  accepts(record().documentWith(turned), record().documentWith(record().fields));
}

TEST_P(EveryRecord, FailsOnARepeatedKey) {
  for (const auto& field : record().fields) {
    Fields twice = record().fields;
    twice.push_back(field);
    refusesAt(record().pathTo(field.key), record().documentWith(twice));
  }
}

TEST_P(EveryRecord, KeysAreMatchedToTheLetter) {
  for (const auto& field : requiredOf(record().fields)) {
    Fields other = record().fields;
    std::ranges::find(other, field.key, &Field::key)->key[0] ^= 0x20;
    refusesAt(record().pathTo(field.key), record().documentWith(other));
  }
}

TEST_P(EveryRecord, MustBeAnObject) {
  for (const auto* wrong : {"[]", "\"a\"", "7", "true"}) {
    refusesAt(record().path, record().documentWith(wrong));
  }
}

INSTANTIATE_TEST_SUITE_P(Records, EveryRecord, testing::ValuesIn(allCases()),
                         [](const auto& each) { return each.param.name; });

TEST(Records, FailAsAWholeAtTheFirstThatIsBad) {
  const auto board = decode<BoardState>(
      R"({"rev":1,"me":{"email":"a","name":"b"},"users":[],"files":[{"id":"1","status":"new"},
          {"id":"2","status":"new"},{"id":"3","title":"T"},{"id":"4","title":"T"}],
          "jobs":[],"reports":[],"events":[]})");
  ASSERT_FALSE(board);
  EXPECT_EQ(board.error().where, "files[2].status");
  EXPECT_EQ(board.error().why, "the value is missing");
  const auto stats = decode<Stats>(R"({"at":1,"users":{"a":{"reviewed":1},"b":7}})");
  ASSERT_FALSE(stats);
  EXPECT_EQ(stats.error().where, "users.a.reviewed_week");
}

TEST(Records, TellAnEmptyListFromNone) {
  const auto ticket = decoded<FileItem>(R"({"id":"f","status":"s","refs":[],"pages":null})");
  ASSERT_TRUE(ticket.refs);
  EXPECT_TRUE(ticket.refs->empty());
  EXPECT_FALSE(ticket.pages);
}

}  // namespace
}  // namespace vellix::test
