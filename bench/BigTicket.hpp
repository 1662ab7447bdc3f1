// A ticket with many large pages, whose pictures lie in the picture cache's folder.
#pragma once

#include <QColor>
#include <QString>
#include <string>

#include "records/records.hpp"

namespace vellix::bench {

inline constexpr int kPages = 401;
inline constexpr const char* kBigTicket = "walk";

std::string keyOf(int page);  // of its picture, 2000 by 3000 pixels of type
QString pathOf(int page);
QColor markOf(int page);  // of the square in the picture's middle

// False when the disk did not take them.
bool layOutPictures();
// Each page has two references, which are the pictures of the pages that follow.
FileDetail bigTicket();

// The same for a ticket of the board, with 300 notes and with findings on some pages.
inline constexpr int kFewPage = 0;   // 10 findings
inline constexpr int kBarePage = 1;  // nothing
inline constexpr int kFullPage = 2;  // 1,000 findings, and half of the notes
FileDetail crowdedTicket(const FileItem& file);
// One of a few pages, each with some findings.
FileDetail smallTicket(const FileItem& file);

}  // namespace vellix::bench
