#import <Foundation/Foundation.h>

#include "platform/macos/MacMachine.hpp"

namespace vellix {

std::string MacMachine::name() const {
  @autoreleasepool {
    NSString* name = [[NSHost currentHost] localizedName];
    return name ? std::string{[name UTF8String]} : std::string{};
  }
}

}  // namespace vellix
