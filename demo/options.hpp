// What the service is asked for on its command line.
#pragma once

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "given_proof.hpp"

namespace vellix::demo {

struct Options {
  int port = 0;
  double pace = 1;
  bool colleague = true;
  bool untilStdinCloses = false;
  bool handBack = false;
  std::string sampleFolder;
  std::vector<GivenProof> proofs;
  std::string stateFolder;
  std::string pagesFolder;
  std::string checkedProof;  // of --check, with what it is compared with
  std::string checkedAgainst;
};

extern const char* const kUsage;

// Without the program's name. What is wrong is said in a sentence; empty where only the usage
// helps.
std::expected<Options, std::string> optionsOf(std::span<const char* const> arguments);

}  // namespace vellix::demo
