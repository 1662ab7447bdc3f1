// What tells one run of bytes from any other, the same on every machine and on any day.
#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <string>
#include <string_view>

namespace vellix::demo {

// 32 bytes.
inline QByteArray digestOf(std::string_view bytes) {
  return QCryptographicHash::hash(
      QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())),
      QCryptographicHash::Sha256);
}

// The same in 64 digits; some of them will do to tell a few things apart.
inline std::string digestText(std::string_view bytes) {
  return digestOf(bytes).toHex().toStdString();
}

// Of all that can be read there; empty where reading fails.
inline std::string digestText(QIODevice& from) {
  QCryptographicHash sum(QCryptographicHash::Sha256);
  return sum.addData(&from) ? sum.result().toHex().toStdString() : std::string();
}

}  // namespace vellix::demo
