// Names a described view value in its folder's QML module, so that views can say which one they
// take and lint can tell its fields. In QML it is the map that toQml makes.
#pragma once

// Whoever wants no more than the list of them defines this otherwise.
#ifndef VELLIX_VIEW

#include <QtQml/qqml.h>

#include "bridge/value.hpp"

#define VELLIX_VIEW(View, name) \
  struct View##Type {           \
    Q_GADGET                    \
    QML_FOREIGN(Qml<View>)      \
    QML_NAMED_ELEMENT(name)     \
  };

#endif
