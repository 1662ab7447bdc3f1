#include "faults.hpp"

#include <algorithm>

#include "body.hpp"

namespace vellix::demo {

std::optional<std::string> Faults::replace(const Json& list) {
  const auto* entries = std::get_if<Json::List>(&list.value);
  if (entries == nullptr) return "A list of faults was expected.";
  std::vector<Fault> faults;
  for (const Json& entry : *entries) {
    Fault fault;
    fault.method = textAt(entry, "method").value_or("");
    fault.path = textAt(entry, "path").value_or("");
    if (!fault.path.starts_with('/')) fault.path.insert(0, 1, '/');
    fault.times = static_cast<Int>(std::clamp(numberAt(entry, "times").value_or(1), 0.0, 1e6));
    if (const auto status = numberAt(entry, "status")) {
      if (*status < 100 || *status > 599) return "A status lies between 100 and 599.";
      fault.status = static_cast<int>(*status);
    }
    fault.body = textAt(entry, "body");
    fault.delayMs = static_cast<Int>(std::clamp(numberAt(entry, "delay_ms").value_or(0), 0.0, 6e5));
    fault.held = flagAt(entry, "held").value_or(false);
    fault.cut = flagAt(entry, "cut").value_or(false);
    fault.garbage = flagAt(entry, "garbage").value_or(false);
    fault.after = flagAt(entry, "after").value_or(false);
    if (const auto bytes = numberAt(entry, "after_bytes")) {
      fault.afterBytes = static_cast<std::size_t>(std::clamp(*bytes, 0.0, 1e9));
    }
    fault.dripMs = static_cast<Int>(std::clamp(numberAt(entry, "drip_ms").value_or(0), 0.0, 6e4));
    if (const auto bytes = numberAt(entry, "bytes")) {
      fault.bytes = static_cast<std::size_t>(std::clamp(*bytes, 0.0, 1e9));
    }
    if (const auto bytes = numberAt(entry, "cut_at")) {
      fault.cutAt = static_cast<std::size_t>(std::clamp(*bytes, 0.0, 1e9));
    }
    const bool slow = fault.held || fault.delayMs > 0 || fault.dripMs > 0;
    const bool other = fault.cut || fault.garbage || fault.bytes || fault.cutAt;
    if (!fault.status && !other && !slow) {
      return "A fault needs one of status, cut, cut_at, garbage, bytes, held, delay_ms and "
             "drip_ms.";
    }
    faults.push_back(std::move(fault));
  }
  faults_ = std::move(faults);
  ++replaced_;
  return std::nullopt;
}

std::optional<Fault> Faults::take(const std::string& method, const std::string& path) {
  const auto fits = [&](const Fault& fault) {
    return fault.times > 0 && (fault.method.empty() || fault.method == method) &&
           path.starts_with(fault.path);
  };
  const auto found = std::ranges::find_if(faults_, fits);
  if (found == faults_.end()) return std::nullopt;
  --found->times;
  return *found;
}

}  // namespace vellix::demo
