// The files of an update, in the person's folder of caches.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/update_files.hpp"
#include "platform/qt/Errands.hpp"

namespace vellix {

// The text under a key of the property list at a path; none when there is none to be had. Called on
// a thread that may wait.
using PropertyListReader =
    std::function<std::optional<std::string>(const std::string& path, const std::string& key)>;

// Made, used and ended on the main thread, while the QCoreApplication lives. What is under way at
// its end never resolves.
class QtUpdateFiles : public UpdateFiles {
 public:
  explicit QtUpdateFiles(PropertyListReader reader) : reader_(std::move(reader)) {}

  std::string stage() const override;
  std::string temporaryFolder() const override;

  Pending<bool> hasRoomFor(std::int64_t bytes) override;
  std::shared_ptr<ArrivingFile> begin() override;
  Pending<bool> renewStage() override;
  Pending<bool> putIntoStage(std::shared_ptr<ArrivingFile> file, std::string name) override;

  Pending<bool> exists(std::string path) override;
  Pending<std::optional<std::string>> textIn(std::string propertyList, std::string key) override;
  bool isWritable(const std::string& path) const override;
  bool write(const std::string& path, const std::string& text) override;

 private:
  const PropertyListReader reader_;
  Errands errands_;
};

}  // namespace vellix
