// The user defaults in an INI file.
#pragma once

#include <QSettings>

#include "platform/ports/defaults.hpp"

namespace vellix {

// The user's folder of this program's configuration.
std::string configFolder();

// Where the file lies for this user.
std::string defaultsPath();

// Main thread. A damaged file gives what is readable of it; one that cannot be written leaves the
// values in memory.
class QtDefaults : public Defaults {
 public:
  explicit QtDefaults(const std::string& path = defaultsPath());

  std::optional<std::string> text(const std::string& key) const override;
  std::optional<bool> flag(const std::string& key) const override;
  void setText(const std::string& key, const std::string& value) override;
  void setFlag(const std::string& key, bool value) override;
  void writeDown() override;
  bool lasting() const override;

 private:
  QSettings settings_;
};

}  // namespace vellix
