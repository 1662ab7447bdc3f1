#include "platform/qt/QtDefaults.hpp"

#include <QStandardPaths>
#include <cmath>

namespace vellix {
namespace {

QString keyOf(const std::string& key) { return QString::fromStdString(key); }

bool readsAsTrue(const QString& word) {
  const auto is = [&word](const char* other) {
    return word.compare(QLatin1String{other}, Qt::CaseInsensitive) == 0;
  };
  bool isNumber = false;
  const double number = word.toDouble(&isNumber);
  return is("true") || is("yes") || (isNumber && std::isfinite(number) && number != 0);
}

}  // namespace

std::string configFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString() +
         "/vellix";
}

std::string defaultsPath() { return configFolder() + "/defaults.ini"; }

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
  if (!settings_.contains(keyOf(key))) return std::nullopt;
  return readsAsTrue(QString::fromStdString(text(key).value_or("")));
}

void QtDefaults::setText(const std::string& key, const std::string& value) {
  settings_.setValue(keyOf(key), QString::fromStdString(value));
}

void QtDefaults::setFlag(const std::string& key, bool value) {
  settings_.setValue(keyOf(key), value);
}

void QtDefaults::writeDown() { settings_.sync(); }

bool QtDefaults::lasting() const { return settings_.isWritable(); }

}  // namespace vellix
