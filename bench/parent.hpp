// The run as a whole.
#pragma once

#include <QStringList>

namespace vellix::bench {

// Runs the named measurements, or all of them, each in processes of its own, and prints the table.
// 0 when all is within its budget, 1 when something is not, 2 when a name is unknown.
int run(const QStringList& names);

}  // namespace vellix::bench
