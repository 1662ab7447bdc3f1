// The user defaults: small values that outlive the process, by key.
#pragma once

#include <optional>
#include <string>

namespace vellix {

class Defaults {
 public:
  virtual ~Defaults() = default;
  // None when the key is absent or holds no text.
  virtual std::optional<std::string> text(const std::string& key) const = 0;
  // None when the key is absent, and only then. "true", "yes", in any case, and any number but 0
  // read as true, all else as false.
  virtual std::optional<bool> flag(const std::string& key) const = 0;
  // Readable at once; on disk soon after. A file that cannot be written is not an error here.
  virtual void setText(const std::string& key, const std::string& value) = 0;
  virtual void setFlag(const std::string& key, bool value) = 0;
  // What was set so far is on the disk when it returns, whatever becomes of the process then; as
  // far as anything can be written.
  virtual void writeDown() = 0;
  // False while nothing can be written down: what is set then lasts for the run alone.
  virtual bool lasting() const = 0;
};

}  // namespace vellix
