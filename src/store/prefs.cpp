#include "store/prefs.hpp"

namespace vellix {
namespace {

bool stored(const Defaults& defaults, const std::string& key, bool byDefault) {
  return defaults.flag(key).value_or(byDefault);
}
std::string stored(const Defaults& defaults, const std::string& key, const std::string& byDefault) {
  return defaults.text(key).value_or(byDefault);
}
void write(Defaults& defaults, const std::string& key, bool value) { defaults.setFlag(key, value); }
void write(Defaults& defaults, const std::string& key, const std::string& value) {
  defaults.setText(key, value);
}

}  // namespace

template <class T>
Prefs::Setting<T>::Setting(Prefs& prefs, std::string key, T byDefault)
    : defaults_(prefs.defaults_),
      key_(std::move(key)),
      value_(prefs.changes, kAny, stored(prefs.defaults_, key_, byDefault)) {}

template <class T>
void Prefs::Setting<T>::set(T value) {
  write(defaults_, key_, value);
  value_.set(std::move(value));
}

template class Prefs::Setting<bool>;
template class Prefs::Setting<std::string>;

}  // namespace vellix
