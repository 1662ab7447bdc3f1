#include "update/running_tools.hpp"

#include <unicode/utf8.h>

#include <cstdint>
#include <string_view>
#include <utility>

#include "update/place.hpp"

namespace vellix {
namespace {

bool isUtf8(std::string_view bytes) {
  const auto length = static_cast<std::int64_t>(bytes.size());
  for (std::int64_t at = 0; at < length;) {
    UChar32 character = 0;
    U8_NEXT(bytes.data(), at, length, character);
    if (character < 0) return false;
  }
  return true;
}

}  // namespace

UpdateFail didNotFinish() {
  return {"The update didn't finish. Try again, or download it from the Vellix page."};
}

Task<UpdateResult<std::string>> runTool(Tools& tools, std::string path,
                                        std::vector<std::string> arguments, Milliseconds longest) {
  const std::string tool = placeOf(path).name;
  const auto running = tools.run(std::move(path), std::move(arguments), longest);
  const auto result = co_await running;
  if (!result && result.error() == ToolError::notStarted) co_return std::unexpected(didNotFinish());
  if (!result || result->status != 0) {
    co_return std::unexpected(UpdateFail{"The update check failed (" + tool +
                                         "). Try again, or download it from the Vellix page."});
  }
  co_return isUtf8(result->output) ? result->output : std::string{};
}

}  // namespace vellix
