#include "platform/qt/QtDefaults.hpp"

#include <QStandardPaths>

namespace vellix {
namespace {

QString keyOf(const std::string& key) { return QString::fromStdString(key); }

}  // namespace

std::string defaultsPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString() +
         "/vellix/defaults.ini";
}

QtDefaults::QtDefaults(const std::string& path)
    : settings_(QString::fromStdString(path), QSettings::IniFormat) {}

std::optional<std::string> QtDefaults::text(const std::string& key) const {
  const QVariant value = settings_.value(keyOf(key));
  // A comma that somebody wrote by hand, without quotes, reads as a list.
  if (value.typeId() == QMetaType::QStringList)
    return value.toStringList().join(", ").toStdString();
  if (!value.canConvert<QString>()) return std::nullopt;
  return value.toString().toStdString();
}

std::optional<bool> QtDefaults::flag(const std::string& key) const {
  const auto word = text(key);
  if (word == "true" || word == "1") return true;
  if (word == "false" || word == "0") return false;
  return std::nullopt;
}

void QtDefaults::setText(const std::string& key, const std::string& value) {
  settings_.setValue(keyOf(key), QString::fromStdString(value));
}

void QtDefaults::setFlag(const std::string& key, bool value) {
  settings_.setValue(keyOf(key), value);
}

}  // namespace vellix
