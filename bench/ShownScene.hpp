// What a window shows, as plain data: the bare program shows just that.
#pragma once

#include <QByteArray>
#include <QQuickWindow>

namespace vellix::bench {

// JSON with the lists boxes, pictures, drawings and words; each has its place in the window, and
// its turn (z) among all of them.
QByteArray shownScene(QQuickWindow& window);

}  // namespace vellix::bench
