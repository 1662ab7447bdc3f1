#include "views/warnings.hpp"

#include <QtGlobal>
#include <cstdio>
#include <utility>

namespace vellix {
namespace {

QStringList warnings;

void note(QtMsgType type, const QMessageLogContext&, const QString& message) {
  std::fprintf(stderr, "%s\n", qPrintable(message));
  if (type != QtDebugMsg && type != QtInfoMsg) warnings.append(message);
}

}  // namespace

void watchWarnings() {
  warnings.clear();
  qInstallMessageHandler(note);
}

QStringList takeWarnings() { return std::exchange(warnings, {}); }

}  // namespace vellix
