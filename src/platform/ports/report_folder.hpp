// The folder that reports are put into, with one report at hand that has come in whole. Names are
// single ones, of at most 255 bytes; what a file is called until it is whole is the folder's own.
// Calls may wait for the disk: any one thread, but not the main one.
#pragma once

#include <string>

namespace vellix {

class ReportFolder {
 public:
  // What stands under a name.
  enum class Place {
    free,
    same,   // a file of just the report's bytes
    taken,  // anything else: another file, one that cannot be read, a folder, a link to nowhere
  };
  enum class Written { whole, taken, failed };

  virtual ~ReportFolder() = default;
  // Compares no more than it takes to tell two files apart.
  virtual Place look(const std::string& name) = 0;
  // The report under that name: whole or not at all, and never in the place of something else,
  // which may have come since one looked.
  virtual Written write(const std::string& name) = 0;
};

}  // namespace vellix
