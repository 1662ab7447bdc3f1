#import <Foundation/Foundation.h>

#include <charconv>
#include <string_view>

#include "platform/macos/mac_bundle.hpp"

namespace vellix {
namespace {

std::optional<std::string> textOf(id value) {
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  return std::string{[value UTF8String]};
}

// Digits behind a sign or none, and nothing else.
std::int64_t buildOf(std::string_view text) {
  if (text.starts_with("+") && !text.starts_with("+-")) text.remove_prefix(1);
  std::int64_t build = 1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), build);
  return error == std::errc{} && end == text.data() + text.size() ? build : 1;
}

}  // namespace

RunningCopy runningCopy(std::int64_t /*built*/) {
  @autoreleasepool {
    NSBundle* bundle = [NSBundle mainBundle];
    id build = [bundle objectForInfoDictionaryKey:@"CFBundleVersion"];
    return {.identifier = textOf([bundle bundleIdentifier]),
            .bundle = textOf([bundle bundlePath]).value_or(""),
            .process = [[NSProcessInfo processInfo] processIdentifier],
            .build = buildOf(textOf(build).value_or("1"))};
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
