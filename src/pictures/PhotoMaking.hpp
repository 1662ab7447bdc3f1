// From a picture of a person's own to the photo that they are seen by. Any thread.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QSize>

#include "pictures/DecodingBudget.hpp"
#include "platform/ports/photos.hpp"

namespace vellix {

// As large as fits; the halves of what is left over are cut toward zero.
QRect centredSquare(QSize whole);

// Waits for its share of the budget. What does not begin like a picture is not loaded; one that is
// broken, or takes more than there is for any, is not made.
PhotoResult makePhoto(const QByteArray& bytes, DecodingBudget& budget);

}  // namespace vellix
