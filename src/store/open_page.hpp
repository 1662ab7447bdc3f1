// Which page of a ticket is on show.
#pragma once

#include "store/store.hpp"

namespace vellix {

// 0-based, and held to the pages there are.
Int pageIndex(const Store& store, const FileItem& file);
const Page* pageAt(const FileItem& file, Int index);  // owned by the ticket; null when none
// What the page is called, also where the ticket has none.
std::string pageName(const FileItem& file, Int index);

}  // namespace vellix
