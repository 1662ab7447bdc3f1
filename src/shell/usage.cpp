#include "shell/usage.hpp"

#include <algorithm>
#include <array>

#include "gateway/api.hpp"

namespace vellix {
namespace {

constexpr std::array kFlags = std::to_array<Flag>({
    {"--help", "", "tell the flags, and end"},
    {"--version", "", "tell the version, and end"},
    {"--shot", "FILE", "take a picture of the window after three seconds, and end"},
    {"--dark", "", "in the dark appearance, else in the light one"},
    {"--signin", "", "of the sign-in screen"},
    {"--sample", "FOLDER", "of the board in FOLDER/sample.json"},
    {"--size", "WxH", "with a window of this size"},
    {"--grab", "", "with the pixels that the screen shows"},
    {"--panel", "NAME", "show one panel alone: lab, log, settings, send, upload or share"},
    {"--lab", "", "the same as --panel lab"},
    {"--reprints", "", "the queue of reprints"},
    {"--multi", "", "the first two tickets selected"},
    {"--file", "ID", "this ticket selected"},
    {"--focus", "", "the page's first finding in focus"},
    {"--activity", "", "what happened lately"},
    {"--draft", "", "a note being written on the page"},
    {"--profile", "[WHICH]", "a person's page with made-up figures"},
    {"--zoom", "NUMBER", "the page this many times as large"},
    {"--mode", "NAME", "pages compared in another way: overlay or blink"},
    {"--narrow", "", "the notes as a drawer"},
    {"--history", "", "the history beside the page"},
    {"--offline", "", "the service out of reach"},
    {"--toast", "", "a message at the foot, with a way back"},
    {"--follow", "", "the selection made to fit what is listed"},
});

constexpr std::size_t kEffectColumn = 22;

std::string version() {
  return "Vellix " + API::shortVersion() + " (build " + std::to_string(API::buildNumber()) + ")\n";
}

std::string help() {
  std::string text =
      "Usage: vellix [FLAG]... [URL]\n"
      "Review print proofs page by page.\n"
      "\n"
      "URL is a sorel: link to open. A program that runs already opens it, and comes to the "
      "front.\n"
      "The flags below --shot need it, all but --panel and --lab. What is not told is passed "
      "over.\n"
      "\n";
  for (const Flag& flag : kFlags) {
    std::string line = "  " + std::string{flag.name};
    if (!flag.value.empty()) line.append(" ").append(flag.value);
    line.resize(std::max(line.size() + 2, kEffectColumn), ' ');
    text += line.append(flag.effect).append("\n");
  }
  return text;
}

}  // namespace

std::span<const Flag> flags() { return kFlags; }

std::optional<std::string> usage(const Arguments& arguments) {
  if (hasFlag(arguments, "--help")) return help();
  if (hasFlag(arguments, "--version")) return version();
  return std::nullopt;
}

}  // namespace vellix
