// The files of an update: the stage, a folder in which the next program is prepared, and what is
// asked about files anywhere. Main thread only; what may take a while resolves there.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/http.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

// What comes in. It has no name and goes with its last owner until it is put into the stage.
// Written to on one thread at a time; may wait for the disk.
class ArrivingFile : public HttpSink {};

class UpdateFiles {
 public:
  virtual ~UpdateFiles() = default;

  virtual std::string stage() const = 0;            // path; the folder need not be there
  virtual std::string temporaryFolder() const = 0;  // the person's own, for what is soon forgotten

  // Whether so much more may be written where the stage lies.
  virtual Pending<bool> hasRoomFor(std::int64_t bytes) = 0;
  virtual std::shared_ptr<ArrivingFile> begin() = 0;
  // Removes the stage with all that is in it, as far as that can be, and makes it anew. False
  // when there is none afterwards.
  virtual Pending<bool> renewStage() = 0;
  // Gives what has come a name in the stage, once it is whole on the disk. False when it could not.
  virtual Pending<bool> putIntoStage(std::shared_ptr<ArrivingFile> file, std::string name) = 0;

  virtual Pending<bool> exists(std::string path) = 0;
  // The text under a key of a property list; none when there is no list, no such key, or no text.
  virtual Pending<std::optional<std::string>> textIn(std::string propertyList, std::string key) = 0;
  virtual bool isWritable(const std::string& path) const = 0;
  // All of it or nothing. False when it could not be written.
  virtual bool write(const std::string& path, const std::string& text) = 0;
};

}  // namespace vellix
