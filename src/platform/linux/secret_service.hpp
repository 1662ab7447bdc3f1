// What the desktop's keyring says of itself on the session bus. These block for some seconds at
// most and are for the keychain's thread.
#pragma once

#include <QString>

namespace vellix {

enum class SecretService { present, absent, unknown };

// On the bus, or to be started there.
SecretService lookForSecretService();

// True only when it answers that nothing of that name is locked up: a locked secret, and one that
// its owner does not unlock, read as if there were none.
bool nothingIsLocked(const QString& service, const QString& account);

}  // namespace vellix
