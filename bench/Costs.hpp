// What an action costs the main thread, from the event on and until everything has come to rest.
// What glides is moved on by the length of a frame whenever there is nothing else to do, so that a
// glide costs all its frames and no time is waited for.
#pragma once

#include <QAnimationDriver>
#include <functional>
#include <vector>

#include "Scene.hpp"

namespace vellix::bench {

// In milliseconds of the main thread.
struct Cost {
  double first = 0;  // from the event to the end of the first frame
  double worst = 0;  // of this and of each later frame, or turn without one
  double whole = 0;  // of all of it
  int frames = 0;
};

// One in a process, main thread. The frames and what `isIdle` looks at must outlive it.
class Costs {
 public:
  // `isIdle` is false while something is still to come, from the service say.
  Costs(Frames& frames, std::function<bool()> isIdle);

  Cost of(const std::function<void()>& action);
  // The same up to its first frame alone, while what glides goes on by so many milliseconds.
  Cost frame(const std::function<void()>& action, int step);
  // Lets everything come to rest; false when it never does.
  bool rest() { return settle(nullptr); }

 private:
  class Pace : public QAnimationDriver {
   public:
    void go(int step);  // so many milliseconds
    qint64 elapsed() const override { return now_; }

   private:
    qint64 now_ = 0;
  };

  bool settle(Cost* cost);
  void note();

  Frames& frames_;
  std::function<bool()> isIdle_;
  Pace pace_;
  Cost* cost_ = nullptr;  // that is being worked out
  double mark_ = 0;       // of the thread's time, where the last frame or turn ended
};

}  // namespace vellix::bench
