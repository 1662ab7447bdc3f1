#include "store/people.hpp"

namespace vellix {
namespace {

constexpr double kPresence = 720'000;  // milliseconds

}  // namespace

bool isHere(const Person& person, Moment now) {
  return wireOf(now) - kPresence < person.last_seen.value_or(0);
}

}  // namespace vellix
