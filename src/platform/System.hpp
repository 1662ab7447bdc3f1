// The system that the program is built for: its adapters under names that are the same on each.
#pragma once

#ifdef __APPLE__
#include "platform/macos/LaunchedApplication.hpp"
#include "platform/macos/MacBadge.hpp"
#include "platform/macos/MacDefaults.hpp"
#include "platform/macos/MacLook.hpp"
#include "platform/macos/MacMachine.hpp"
#include "platform/macos/MacSignInBrowser.hpp"
#include "platform/macos/MacWakes.hpp"
#include "platform/macos/TokenStores.hpp"
#include "platform/macos/grab_window.hpp"
#include "platform/macos/mac_bundle.hpp"
#else
#include "platform/linux/DesktopApplication.hpp"
#include "platform/linux/LauncherBadge.hpp"
#include "platform/linux/LogindWakes.hpp"
#include "platform/linux/PortalLook.hpp"
#include "platform/linux/TokenStores.hpp"
#include "platform/linux/WindowSignIn.hpp"
#include "platform/linux/grab_window.hpp"
#include "platform/linux/no_bundle.hpp"
#include "platform/linux/xml_property_list.hpp"
#include "platform/qt/QtDefaults.hpp"
#include "platform/qt/QtMachine.hpp"
#endif

namespace vellix {

#ifdef __APPLE__
using SystemApplication = LaunchedApplication;
using SystemBadge = MacBadge;
using SystemDefaults = MacDefaults;
using SystemLook = MacLook;
using SystemMachine = MacMachine;
using SystemSignIn = MacSignInBrowser;
using SystemWakes = MacWakes;
#else
using SystemApplication = DesktopApplication;
using SystemBadge = LauncherBadge;
using SystemDefaults = QtDefaults;
using SystemLook = PortalLook;
using SystemMachine = QtMachine;
using SystemSignIn = WindowSignIn;
using SystemWakes = LogindWakes;
inline constexpr auto* textInPropertyList = textInXmlPropertyList;
#endif

}  // namespace vellix
