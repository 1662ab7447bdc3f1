// Words that somebody has begun to write and that nobody has yet. Main thread only.
#pragma once

#include <QList>
#include <QWindow>

namespace vellix {

// In any field of these windows that can be written in: also in a ticket's view that waits behind
// another, but not in a popover or sheet that is closed.
bool holdUnsentWords(const QList<QWindow*>& windows);

}  // namespace vellix
