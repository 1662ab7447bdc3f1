// The pictures' folder on disk.
#pragma once

#include "platform/ports/pictures.hpp"

namespace vellix {

// Where this user's pictures lie.
std::string pictureCachePath();

// Names come from outside: one that is not a plain file name is neither found nor written, and no
// symbolic link is followed. A folder that cannot be made or written only makes `write` fail.
class QtPictureFiles : public PictureFiles {
 public:
  explicit QtPictureFiles(const std::string& folder = pictureCachePath());

  std::string find(const std::string& name) const override;
  std::string write(const std::string& name, const std::string& bytes) override;

 private:
  std::string folder_;
};

}  // namespace vellix
