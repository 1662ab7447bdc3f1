// Every user setting, each mirrored into the user defaults the moment it changes. One instance
// for the process. Main thread only.
#pragma once

#include <string>

#include "platform/ports/defaults.hpp"
#include "store/published.hpp"

namespace vellix {

class Prefs {
 public:
  // One setting and the key it is stored under. The default holds while the key is absent.
  template <class T>
  class Setting {
   public:
    Setting(Prefs& prefs, std::string key, T byDefault);
    const T& operator()() const { return value_(); }
    void set(T value);

   private:
    Defaults& defaults_;
    std::string key_;
    Published<T> value_;
  };

  Prefs(MainLoop& loop, Defaults& defaults) : changes(loop), defaults_(defaults) {}

  // False while settings last for this run alone.
  bool lasting() const { return defaults_.lasting(); }

  Changes changes;  // any setting: watch with kAny
  static constexpr Changes::Fields kAny = 1;

 private:
  Defaults& defaults_;

 public:
  Setting<std::string> appearance{*this, "Appearance", "system"};  // "system", "light", "dark"
  // What follows a request for approval: "notion", "gmail" or "none".
  Setting<std::string> afterApproval{*this, "AfterApproval", "notion"};
  Setting<bool> drawToComment{*this, "DrawToComment", true};
  Setting<bool> showPageStrip{*this, "ShowPageStrip", true};
  Setting<bool> showNotes{*this, "ShowNotes", true};
  Setting<bool> openLoupe{*this, "OpenLoupe", true};
  Setting<bool> foldDecided{*this, "FoldDecided", true};
  Setting<bool> foldReviewed{*this, "FoldReviewed", true};
  Setting<bool> autoAdvance{*this, "AutoAdvance", true};
  Setting<bool> showPassed{*this, "ShowPassed", true};
  Setting<bool> liveToasts{*this, "LiveToasts", true};
  Setting<bool> dockBadge{*this, "DockBadge", true};
};

}  // namespace vellix
