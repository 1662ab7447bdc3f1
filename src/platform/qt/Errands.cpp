#include "platform/qt/Errands.hpp"

#include <system_error>
#include <thread>

namespace vellix {

bool Errands::begin(std::function<void()> work) {
  try {
    std::thread(std::move(work)).detach();
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

}  // namespace vellix
