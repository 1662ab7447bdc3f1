#import <AppKit/AppKit.h>

#include <functional>
#include <utility>

#include "platform/macos/Listening.hpp"
#include "platform/macos/MacLook.hpp"

@interface VellixAppearance : NSObject {
  std::function<void()> changed_;
}
- (instancetype)initWithChange:(std::function<void()>)changed;
@end

@implementation VellixAppearance

- (instancetype)initWithChange:(std::function<void()>)changed {
  self = [super init];
  if (self) {
    changed_ = std::move(changed);
    [NSApp addObserver:self forKeyPath:@"effectiveAppearance" options:0 context:nullptr];
  }
  return self;
}

- (void)dealloc {
  [NSApp removeObserver:self forKeyPath:@"effectiveAppearance"];
  [super dealloc];
}

- (void)observeValueForKeyPath:(NSString*)path
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
  changed_();
}

@end

namespace vellix {
namespace {

Look currentLook() {
  NSArray* schemes = @[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ];
  NSString* scheme = [NSApp.effectiveAppearance bestMatchFromAppearancesWithNames:schemes];
  NSWorkspace* workspace = [NSWorkspace sharedWorkspace];
  return {
      .scheme = [scheme isEqualToString:NSAppearanceNameDarkAqua] ? Scheme::dark : Scheme::light,
      .reducedMotion = workspace.accessibilityDisplayShouldReduceMotion == YES};
}

}  // namespace

struct MacLook::Watching {
  explicit Watching(const std::function<void()>& changed)
      : appearance([[VellixAppearance alloc] initWithChange:changed]),
        motion([[NSWorkspace sharedWorkspace] notificationCenter],
               NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification, changed) {}
  Watching(const Watching&) = delete;
  Watching& operator=(const Watching&) = delete;
  ~Watching() { [appearance release]; }

  VellixAppearance* appearance;
  Listening motion;
};

MacLook::MacLook()
    : look_(currentLook()), watching_(std::make_unique<Watching>([this] { take(); })) {}

MacLook::~MacLook() = default;

void MacLook::take() {
  const Look look = currentLook();
  if (look == look_) return;
  look_ = look;
  emit changed();
}

}  // namespace vellix
