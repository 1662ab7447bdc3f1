#import <Foundation/Foundation.h>

#include "platform/macos/mac_bundle.hpp"

#include "records/whole_number.hpp"

namespace vellix {
namespace {

std::optional<std::string> textOf(id value) {
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  return std::string{[value UTF8String]};
}

}  // namespace

RunningCopy runningCopy(std::int64_t /*built*/) {
  @autoreleasepool {
    NSBundle* bundle = [NSBundle mainBundle];
    id build = [bundle objectForInfoDictionaryKey:@"CFBundleVersion"];
    return {.identifier = textOf([bundle bundleIdentifier]),
            .bundle = textOf([bundle bundlePath]).value_or(""),
            .process = [[NSProcessInfo processInfo] processIdentifier],
            .build = wholeNumber(textOf(build).value_or("1")).value_or(1)};
  }
}

std::optional<std::string> textInPropertyList(const std::string& propertyList,
                                              const std::string& key) {
  @autoreleasepool {
    NSString* path = [NSString stringWithUTF8String:propertyList.c_str()];
    NSString* name = [NSString stringWithUTF8String:key.c_str()];
    if (!path || !name) return std::nullopt;
    NSDictionary* list = [NSDictionary dictionaryWithContentsOfURL:[NSURL fileURLWithPath:path]];
    return textOf([list objectForKey:name]);
  }
}

}  // namespace vellix
