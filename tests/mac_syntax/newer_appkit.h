// What src/platform/macos/ uses of AppKit that GNUstep does not have yet, declared for the syntax
// check alone.
#ifdef __OBJC__
#import <AppKit/AppKit.h>

@interface NSApplication (NewerThanGNUstep)
@property(readonly) NSDockTile* dockTile;
@property(readonly) NSAppearance* effectiveAppearance;
@end

@interface NSWorkspace (NewerThanGNUstep)
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion;
@end

extern "C" NSString* const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;
#endif
