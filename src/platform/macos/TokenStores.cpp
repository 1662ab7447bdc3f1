#include "platform/macos/TokenStores.hpp"

#include "platform/macos/KeychainTokenStore.hpp"
#include "platform/macos/mac_bundle.hpp"

namespace vellix {
namespace {

constexpr const char* kServiceWithoutBundle = "com.rennyvale.Sorel";

std::string serviceName() { return runningCopy(1).identifier.value_or(kServiceWithoutBundle); }

}  // namespace

Pending<std::shared_ptr<DurableTokenStore>> openTokenStore(const std::string& /*configFolder*/) {
  const Resolver<std::shared_ptr<DurableTokenStore>> resolver;
  const auto store = std::make_shared<KeychainTokenStore>(serviceName());
  store->prime([resolver, store] { resolver(store); });
  return resolver.pending();
}

}  // namespace vellix
