#include "pieces/ListKeys.hpp"

namespace vellix {

qreal ListKeys::by(int key, qreal line, qreal page, qreal whole) {
  switch (key) {
    case Qt::Key_Up:
      return -line;
    case Qt::Key_Down:
      return line;
    case Qt::Key_PageUp:
      return -page;
    case Qt::Key_PageDown:
      return page;
    case Qt::Key_Home:
      return -whole;
    case Qt::Key_End:
      return whole;
    default:
      return 0;
  }
}

}  // namespace vellix
