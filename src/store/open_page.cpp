#include "store/open_page.hpp"

#include <algorithm>

namespace vellix {

Int pageIndex(const Store& store, const FileItem& file) {
  const Int count = file.pages ? static_cast<Int>(file.pages->size()) : 0;
  const auto entry = store.page().find(file.id);
  return std::min(entry == store.page().end() ? 0 : entry->second, std::max<Int>(count - 1, 0));
}

const Page* pageAt(const FileItem& file, Int index) {
  if (!file.pages || index < 0 || index >= static_cast<Int>(file.pages->size())) return nullptr;
  return &(*file.pages)[static_cast<std::size_t>(index)];
}

std::string pageName(const FileItem& file, Int index) {
  const Page* page = pageAt(file, index);
  return page ? page->name() : Page{.i = index}.name();
}

}  // namespace vellix
