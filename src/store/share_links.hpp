// The links of a shared ticket.
#pragma once

#include <optional>
#include <string>

#include "records/json.hpp"

namespace vellix {

// The links that an answer of the service tells of. What is no text is not there.
ShareInfo shareIn(const Json::Object& answer);

// What a Notion task embeds, or else the link itself; none when there is neither.
std::optional<std::string> notionLink(const ShareInfo& share);

}  // namespace vellix
