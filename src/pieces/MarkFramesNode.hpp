// What shows the frames of many marks in the scene: one node for the software renderer, which would
// look at each of many in every frame; for a GPU a node a frame, whose pixels lie in shared
// textures.
#pragma once

#include <QSGNode>
#include <vector>

#include "pieces/MarkFrames.hpp"

class QQuickWindow;

namespace vellix {

// The node that shows these, from the lowest to the topmost: `old` is the one that showed others,
// or null. Null where there are none. To be called while the scene is brought up to date.
QSGNode* markFramesNode(QSGNode* old, QQuickWindow& window,
                        std::vector<MarkFrames::Painted> frames);

}  // namespace vellix
