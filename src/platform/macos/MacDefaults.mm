#import <Foundation/Foundation.h>

#include <cmath>

#include "platform/macos/MacDefaults.hpp"

namespace vellix {
namespace {

NSUserDefaults* defaults() { return [NSUserDefaults standardUserDefaults]; }

// Null for what is no UTF-8.
NSString* textOf(const std::string& text) { return [NSString stringWithUTF8String:text.c_str()]; }

id valueUnder(const std::string& key) {
  NSString* name = textOf(key);
  return name ? [defaults() objectForKey:name] : nil;
}

void set(const std::string& key, id value) {
  NSString* name = textOf(key);
  if (name && value) [defaults() setObject:value forKey:name];
}

bool readsAsTrue(NSString* word) {
  if ([word caseInsensitiveCompare:@"true"] == NSOrderedSame) return true;
  if ([word caseInsensitiveCompare:@"yes"] == NSOrderedSame) return true;
  NSScanner* scanner = [NSScanner scannerWithString:word];
  double number = 0;
  return [scanner scanDouble:&number] && [scanner isAtEnd] && std::isfinite(number) && number != 0;
}

}  // namespace

std::optional<std::string> MacDefaults::text(const std::string& key) const {
  @autoreleasepool {
    id value = valueUnder(key);
    if ([value isKindOfClass:[NSNumber class]]) value = [value stringValue];
    if (![value isKindOfClass:[NSString class]]) return std::nullopt;
    return std::string{[value UTF8String]};
  }
}

std::optional<bool> MacDefaults::flag(const std::string& key) const {
  @autoreleasepool {
    id value = valueUnder(key);
    if (!value) return std::nullopt;
    if ([value isKindOfClass:[NSNumber class]]) return [value boolValue] == YES;
    return [value isKindOfClass:[NSString class]] && readsAsTrue(value);
  }
}

void MacDefaults::setText(const std::string& key, const std::string& value) {
  @autoreleasepool {
    set(key, textOf(value));
  }
}

void MacDefaults::setFlag(const std::string& key, bool value) {
  @autoreleasepool {
    set(key, [NSNumber numberWithBool:value ? YES : NO]);
  }
}

void MacDefaults::writeDown() {
  @autoreleasepool {
    [defaults() synchronize];
  }
}

}  // namespace vellix
