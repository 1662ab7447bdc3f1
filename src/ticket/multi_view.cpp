#include "ticket/multi_view.hpp"

#include "jobs/report_area.hpp"

namespace vellix {

MultiFilesView multiFiles(const Store& store) {
  const auto files = selectedFiles(store);
  MultiFilesView view{.heading = std::to_string(files.size()) + " files"};
  for (const FileItem* file : files) {
    view.titles += (view.titles.empty() ? "" : " · ") + file->heading();
  }
  return view;
}

}  // namespace vellix
