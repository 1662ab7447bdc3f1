// Property lists in their form as XML.
#pragma once

#include <optional>
#include <string>

namespace vellix {

// The text under a key of the list's outermost dictionary, of its last one where there are several;
// none when the file is no such list from its beginning to its end, is larger than a megabyte,
// lacks the key, or has something else than text there. May wait for the disk.
std::optional<std::string> textInXmlPropertyList(const std::string& path, const std::string& key);

}  // namespace vellix
