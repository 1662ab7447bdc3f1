#include "platform/qt/QtMachine.hpp"

#include <QString>
#include <QSysInfo>

namespace vellix {

std::string QtMachine::name() const { return QSysInfo::machineHostName().toStdString(); }

}  // namespace vellix
