#include "platform/qt/QtUuids.hpp"

#include <QUuid>

namespace vellix {

std::string QtUuids::fresh() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

}  // namespace vellix
