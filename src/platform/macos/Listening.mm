#include "platform/macos/Listening.hpp"

namespace vellix {

Listening::Listening(NSNotificationCenter* center, NSString* name, std::function<void()> told)
    : center_([center retain]) {
  const auto listens = listens_;
  observer_ = [[center addObserverForName:name
                                   object:nil
                                    queue:[NSOperationQueue mainQueue]
                               usingBlock:^(NSNotification*) {
                                 if (*listens) told();
                               }] retain];
}

Listening::~Listening() {
  *listens_ = false;
  [center_ removeObserver:observer_];
  [observer_ release];
  [center_ release];
}

}  // namespace vellix
