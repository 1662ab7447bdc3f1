#include "platform/linux/TokenStores.hpp"

#include "platform/linux/FileTokenStore.hpp"
#include "platform/linux/KeychainThread.hpp"
#include "platform/linux/SecretServiceTokenStore.hpp"

namespace vellix {
namespace {

using Opened = std::shared_ptr<DurableTokenStore>;

void openKeyring(const Resolver<Opened>& resolver, const KeyringLimits& limits,
                 FileTokenStore left) {
  const auto store = std::make_shared<SecretServiceTokenStore>(limits.job, std::move(left));
  store->prime(limits.read, [resolver, store] { resolver(store); });
}

}  // namespace

Pending<Opened> openTokenStore(const std::string& folder, KeyringLimits limits) {
  const Resolver<Opened> resolver;
  KeychainThread::instance().findSecretService(
      limits.find, [resolver, limits, path = folder + "/session"](SecretService found) {
        // A bus too slow to tell is taken to have a keyring: plain text is for when there is none.
        if (found == SecretService::absent) return resolver(std::make_shared<FileTokenStore>(path));
        openKeyring(resolver, limits, FileTokenStore(path));
      });
  return resolver.pending();
}

}  // namespace vellix
