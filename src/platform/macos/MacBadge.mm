#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/MacBadge.hpp"

namespace vellix {

void MacBadge::show(std::optional<std::int64_t> count) {
  NSString* label = count ? [NSString stringWithUTF8String:std::to_string(*count).c_str()] : nil;
  NSApp.dockTile.badgeLabel = label;
}

}  // namespace vellix
