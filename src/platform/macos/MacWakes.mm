#import <AppKit/AppKit.h>

#include <utility>

#include "platform/macos/Listening.hpp"
#include "platform/macos/MacWakes.hpp"

namespace vellix {

MacWakes::MacWakes() = default;

MacWakes::~MacWakes() = default;

void MacWakes::observe(std::function<void()> woken) {
  listening_ = std::make_unique<Listening>([[NSWorkspace sharedWorkspace] notificationCenter],
                                           NSWorkspaceDidWakeNotification, std::move(woken));
}

}  // namespace vellix
