// The sheet that a revision is uploaded with: a PDF, and a line on what changed.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

// What is being prepared. No poll changes it. It ends with the sheet, and with the session.
struct UploadDraft {
  FileItem file;     // as the board had it last
  std::string path;  // of the PDF; empty while none is chosen
  std::string note;
};

UploadDraft beginUpload(const FileItem& file);
void follow(UploadDraft& draft, const Store& store);
// What is no PDF by its name, or no file at all, is not taken.
void choosePdf(UploadDraft& draft, const std::string& path);
// True when it is on its way; the sheet closes then.
bool upload(const UploadDraft& draft, Store& store);

struct UploadSheetView {
  std::string title;
  std::string intro;
  std::string icon;
  std::string file;  // its name, or that there is none
  bool chosen = false;
  std::string choose;   // on its button
  std::string trouble;  // why nothing can be uploaded any more; empty while it can
  bool canUpload = false;
  bool operator==(const UploadSheetView&) const = default;
};
BOOST_DESCRIBE_STRUCT(UploadSheetView, (),
                      (title, intro, icon, file, chosen, choose, trouble, canUpload))

UploadSheetView uploadSheet(const UploadDraft& draft, const Store& store);

}  // namespace vellix
