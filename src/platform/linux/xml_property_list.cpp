#include "platform/linux/xml_property_list.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>

namespace vellix {
namespace {

constexpr qint64 kMost = qint64{1} << 20;  // bytes

// None for what is no file, or larger than that.
std::optional<QByteArray> bytesOf(const std::string& path) {
  // A pipe would be waited for without the flag.
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  struct stat told{};
  const bool isFile = ::fstat(file, &told) == 0 && S_ISREG(told.st_mode);
  QFile reader;
  if (!reader.open(file, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
    ::close(file);
    return std::nullopt;
  }
  if (!isFile) return std::nullopt;
  auto bytes = reader.read(kMost + 1);
  if (bytes.size() > kMost) return std::nullopt;
  return bytes;
}

// A list has no names of its own; what one stands for may lie in another file.
bool isWhole(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  while (!xml.atEnd()) {
    if (xml.readNext() == QXmlStreamReader::EntityReference) return false;
    if (!xml.entityDeclarations().isEmpty()) return false;
  }
  return !xml.hasError();
}

class Reading {
 public:
  Reading(const QByteArray& bytes, const std::string& key)
      : xml_(bytes), key_(QString::fromStdString(key)) {}

  std::optional<std::string> text() {
    if (next(u"plist") && next(u"dict")) readDictionary();
    while (!xml_.atEnd()) {
      // Nothing else may stand in a list.
      if (xml_.readNext() == QXmlStreamReader::StartElement) xml_.raiseError();
    }
    return xml_.hasError() ? std::nullopt : found_;
  }

 private:
  bool next(QStringView name) {
    if (xml_.readNextStartElement() && xml_.name() == name) return true;
    xml_.raiseError();
    return false;
  }

  void readDictionary() {
    while (xml_.readNextStartElement()) {
      if (xml_.name() != u"key") return xml_.raiseError();
      const bool wanted = xml_.readElementText() == key_;
      if (!xml_.readNextStartElement() || xml_.name() == u"key") return xml_.raiseError();
      if (!wanted) {
        xml_.skipCurrentElement();
      } else if (xml_.name() == u"string") {
        found_ = xml_.readElementText().toStdString();
      } else {
        found_.reset();
        xml_.skipCurrentElement();
      }
    }
  }

  QXmlStreamReader xml_;
  const QString key_;
  std::optional<std::string> found_;
};

}  // namespace

std::optional<std::string> textInXmlPropertyList(const std::string& path, const std::string& key) {
  const auto bytes = bytesOf(path);
  return bytes && isWhole(*bytes) ? Reading(*bytes, key).text() : std::nullopt;
}

}  // namespace vellix
