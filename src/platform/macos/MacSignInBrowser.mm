#import <AppKit/AppKit.h>
#import <AuthenticationServices/AuthenticationServices.h>

#include <utility>

#include "platform/macos/MacSignInBrowser.hpp"

@interface VellixAnchor : NSObject <ASWebAuthenticationPresentationContextProviding>
@end

@implementation VellixAnchor

- (ASPresentationAnchor)presentationAnchorForWebAuthenticationSession:
    (ASWebAuthenticationSession*)session {
  if (NSApp.keyWindow) return NSApp.keyWindow;
  if (NSApp.windows.count > 0) return [NSApp.windows objectAtIndex:0];
  return [[[NSWindow alloc] init] autorelease];
}

@end

namespace vellix {
namespace {

using Told = void (^)(NSURL* callback, NSError* error);

NSString* textOf(const std::string& text) { return [NSString stringWithUTF8String:text.c_str()]; }

SignInEnd endOf(NSURL* callback, NSError* error) {
  if (callback) return std::string{callback.absoluteString.UTF8String};
  if (!error) return std::nullopt;
  const bool cancelled = [error.domain isEqualToString:ASWebAuthenticationSessionErrorDomain] &&
                         error.code == ASWebAuthenticationSessionErrorCodeCanceledLogin;
  return std::unexpected(cancelled ? SignInError::cancelled : SignInError::noBrowser);
}

}  // namespace

struct MacSignInBrowser::Session {
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() {
    [system_ cancel];
    [system_ release];
    [anchor_ release];
  }

  bool open(const std::string& url, const std::string& scheme, Told told) {
    NSURL* page = [NSURL URLWithString:textOf(url)];
    if (!page) return false;
    anchor_ = [[VellixAnchor alloc] init];
    system_ = [[ASWebAuthenticationSession alloc] initWithURL:page
                                            callbackURLScheme:textOf(scheme)
                                            completionHandler:told];
    system_.presentationContextProvider = anchor_;
    system_.prefersEphemeralWebBrowserSession = YES;
    return [system_ start] == YES;
  }

  Resolver<SignInEnd> ended;

 private:
  ASWebAuthenticationSession* system_ = nil;
  VellixAnchor* anchor_ = nil;  // the system's session does not hold it
};

MacSignInBrowser::MacSignInBrowser(MainLoop& loop) : loop_(loop) {}

MacSignInBrowser::~MacSignInBrowser() = default;

Pending<SignInEnd> MacSignInBrowser::start(std::string url, std::string scheme) {
  end(std::nullopt);
  session_ = std::make_shared<Session>();
  const auto ended = session_->ended.pending();
  const std::weak_ptr<Session> started = session_;
  const Told told = ^(NSURL* callback, NSError* error) {
    const SignInEnd how = endOf(callback, error);
    [[NSOperationQueue mainQueue] addOperationWithBlock:^{
      // It tells of its end also when it was given up for another one, or with the program.
      const auto session = started.lock();
      if (session && session == session_) end(how);
    }];
  };
  if (!session_->open(url, scheme, told)) end(std::unexpected(SignInError::noBrowser));
  return ended;
}

bool MacSignInBrowser::arrived(const std::string& url) {
  const bool running = session_ != nullptr;
  end(url);
  return running;
}

void MacSignInBrowser::cancel() { end(std::unexpected(SignInError::cancelled)); }

void MacSignInBrowser::end(SignInEnd how) {
  if (!session_) return;
  // The session is over at once, and whoever waits for it goes on in a later turn.
  loop_.post([ended = session_->ended, how = std::move(how)] { ended(how); });
  session_.reset();
}

}  // namespace vellix
