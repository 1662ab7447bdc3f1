// Every warning that QML or Qt gave since the last look.
#pragma once

#include <QStringList>

namespace vellix {

void watchWarnings();
QStringList takeWarnings();

}  // namespace vellix
