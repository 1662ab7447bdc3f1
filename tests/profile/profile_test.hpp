// The ground of the profile tests: numbers that no service should tell, and a board with people.
#pragma once

#include <limits>

#include "store/store_test.hpp"

namespace vellix {

inline constexpr const char* kRenny = "renny@tessarine.example";    // signed in
inline constexpr const char* kJorvas = "jorvas@tessarine.example";  // a colleague

inline constexpr Int kLeast = std::numeric_limits<Int>::min();
inline constexpr Int kMost = std::numeric_limits<Int>::max();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kEndless = std::numeric_limits<double>::infinity();

class ProfileTest : public StoreTest {
 protected:
  ProfileTest() {
    board = boardOf({ticketOf("t1"), ticketOf("t2"), ticketOf("t3")});
    board.files[0].title = "The Lighthouse";
    board.files[1].title = "Rain";
    publish();
  }
  void publish() { store().board.set(board); }
  double now() { return wireOf(desk.time.now()); }

  BoardState board;
};

}  // namespace vellix
