// How the strip of small pages moves: when it rushes past them, when it glides, and when its
// current page is brought back into sight. Places and lengths are logical pixels.
#pragma once

#include <optional>

namespace vellix {

class StripMotion {
 public:
  // From top to bottom of a page, in what is scrolled.
  struct Span {
    double top = 0;
    double bottom = 0;
  };

  // While it is put somewhere, it goes past nothing.
  void setPlacing(bool placing) { placing_ = placing; }
  bool placing() const { return placing_; }
  // Far from where it has just been, it rushes until it rests.
  bool rushing() const { return rushing_; }

  // A strip of that height has been scrolled to `y`.
  void scroll(double y, double height);
  // It has stood still for a while.
  void rest() { rushing_ = false; }
  // It has another height. True when its current page has to be brought back into sight: whoever
  // has scrolled away from it stays there.
  bool resize(double height, double y, std::optional<Span> current, bool gliding);

 private:
  bool placing_ = false;
  bool rushing_ = false;
  double y_ = 0;
  double height_ = 0;
};

// Whether it glides to a page that is wanted by gliding: only to one that is near.
bool glides(double from, double to, double height, bool wanted);

}  // namespace vellix
