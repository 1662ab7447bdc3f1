// Where the session token is kept on this system.
#pragma once

#include <memory>
#include <string>

#include "platform/ports/pending.hpp"
#include "platform/ports/token_store.hpp"

namespace vellix {

// The keychain, under the bundle's identifier; nothing goes into a folder. The store comes once it
// is read, for which the person may be asked: show something meanwhile.
Pending<std::shared_ptr<DurableTokenStore>> openTokenStore(const std::string& configFolder);

}  // namespace vellix
