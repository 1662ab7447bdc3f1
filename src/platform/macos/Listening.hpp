// A notification of the system's, listened for. For Objective-C++ alone.
#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <memory>

namespace vellix {

// Calls it on the main thread for each notification of that name, as long as this lives. Main
// thread.
class Listening {
 public:
  Listening(NSNotificationCenter* center, NSString* name, std::function<void()> told);
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  ~Listening();

 private:
  NSNotificationCenter* center_;
  id observer_;
  // A block that waits in the queue when the listening ends is run all the same.
  std::shared_ptr<bool> listens_ = std::make_shared<bool>(true);
};

}  // namespace vellix
