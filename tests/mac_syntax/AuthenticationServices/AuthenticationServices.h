// What src/platform/macos/ uses of a system library that GNUstep has nothing of, declared for the
// syntax check alone.
#import <AppKit/AppKit.h>

typedef NSWindow* ASPresentationAnchor;

extern "C" NSString* const ASWebAuthenticationSessionErrorDomain;
enum { ASWebAuthenticationSessionErrorCodeCanceledLogin = 1 };

@class ASWebAuthenticationSession;

@protocol ASWebAuthenticationPresentationContextProviding <NSObject>
- (ASPresentationAnchor)presentationAnchorForWebAuthenticationSession:
    (ASWebAuthenticationSession*)session;
@end

@interface ASWebAuthenticationSession : NSObject
- (instancetype)initWithURL:(NSURL*)url
          callbackURLScheme:(NSString*)scheme
          completionHandler:(void (^)(NSURL*, NSError*))handler;
@property(nonatomic, assign) id<ASWebAuthenticationPresentationContextProviding>
    presentationContextProvider;
@property(nonatomic, assign) BOOL prefersEphemeralWebBrowserSession;
- (BOOL)start;
- (void)cancel;
@end
