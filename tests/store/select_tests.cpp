// What choosing tickets does to the selection.
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

struct Choice {
  const char* name;
  Ids before;
  bool joins;  // or leaves; else it stands alone
  Ids after;
};
BOOST_DESCRIBE_STRUCT(Choice, (), (name, before, joins, after))

class Choices : public StoreTest, public testing::WithParamInterface<Choice> {};

TEST_P(Choices, ChangeTheSelectionAndClearTheFocus) {
  const auto& each = GetParam();
  store().selection.set(each.before);
  store().focus.set("f1");
  if (each.joins) {
    store().toggleSelected("a");
  } else {
    store().select({"a"});
  }
  EXPECT_EQ(store().selection(), each.after);
  EXPECT_FALSE(store().focus());
}

INSTANTIATE_TEST_SUITE_P(
    All, Choices,
    testing::Values(Choice{"First", {}, false, {"a"}}, Choice{"Another", {"b"}, false, {"a"}},
                    Choice{"TheSame", {"a"}, false, {"a"}},
                    Choice{"AfterTwo", {"b", "c"}, false, {"a"}},
                    Choice{"OneOfTwo", {"a", "b"}, false, {"a"}},
                    Choice{"CommandFirst", {}, true, {"a"}},
                    Choice{"CommandAdds", {"b"}, true, {"a", "b"}},
                    Choice{"CommandAddsAThird", {"b", "c"}, true, {"a", "b", "c"}},
                    Choice{"CommandRemoves", {"a", "b"}, true, {"b"}},
                    Choice{"CommandRemovesTheLast", {"a"}, true, {}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
