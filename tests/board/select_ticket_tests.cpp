// What a click on a row does to the selection.
#include "board/file_list.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

struct Click {
  const char* name;
  Ids before;
  bool command;
  Ids after;
};

class Clicks : public StoreTest, public testing::WithParamInterface<Click> {};

TEST_P(Clicks, ChangeTheSelectionAndClearTheFocus) {
  const auto& each = GetParam();
  store().selection.set(each.before);
  store().focus.set("f1");
  selectTicket(store(), "a", each.command);
  EXPECT_EQ(store().selection(), each.after);
  EXPECT_FALSE(store().focus());
}

INSTANTIATE_TEST_SUITE_P(
    All, Clicks,
    testing::Values(Click{"First", {}, false, {"a"}}, Click{"Another", {"b"}, false, {"a"}},
                    Click{"TheSame", {"a"}, false, {"a"}},
                    Click{"AfterTwo", {"b", "c"}, false, {"a"}},
                    Click{"OneOfTwo", {"a", "b"}, false, {"a"}},
                    Click{"CommandFirst", {}, true, {"a"}},
                    Click{"CommandAdds", {"b"}, true, {"a", "b"}},
                    Click{"CommandAddsAThird", {"b", "c"}, true, {"a", "b", "c"}},
                    Click{"CommandRemoves", {"a", "b"}, true, {"b"}},
                    Click{"CommandRemovesTheLast", {"a"}, true, {}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
