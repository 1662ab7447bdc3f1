#include "update/scripts.hpp"

#include <initializer_list>

namespace vellix {
namespace {

std::string lines(std::initializer_list<std::string> each) {
  std::string text;
  for (const auto& line : each) text += (text.empty() ? "" : "\n") + line;
  return text;
}

std::string waitFor(std::int64_t process) {
  return "while kill -0 " + std::to_string(process) + " 2>/dev/null; do sleep 0.2; done";
}

std::string quoted(const std::string& path) { return '"' + path + '"'; }

}  // namespace

std::string swapScript(const SwapPlan& plan) {
  const auto current = quoted(plan.current);
  const auto target = quoted(plan.target);
  const auto old = quoted(plan.target + ".old");
  return lines({
      "#!/bin/sh",
      waitFor(plan.process),
      "rm -rf " + old,
      "[ -e " + target + " ] && mv " + target + " " + old,
      "if /usr/bin/ditto " + quoted(plan.fresh) + " " + target + "; then",
      "  rm -rf " + old,
      "  [ " + current + " != " + target + " ] && rm -rf " + current,
      "else",
      "  rm -rf " + target + "; [ -e " + old + " ] && mv " + old + " " + target,
      "fi",
      "/usr/bin/xattr -dr com.apple.quarantine " + target + " 2>/dev/null",
      "if [ -e " + target + " ]; then /usr/bin/open " + target + "; else /usr/bin/open " + current +
          "; fi",
  });
}

std::string renameScript(const RenamePlan& plan) {
  const auto old = quoted(plan.old);
  const auto renamed = quoted(plan.renamed);
  return lines({
      "#!/bin/sh",
      waitFor(plan.process),
      "if [ -e " + renamed + " ]; then",
      R"(  theirs=$(/usr/libexec/PlistBuddy -c "Print CFBundleVersion" )" +
          quoted(plan.renamed + "/Contents/Info.plist") + " 2>/dev/null || echo 0)",
      R"(  if [ "$theirs" -lt )" + std::to_string(plan.build) + " ]; then rm -rf " + renamed +
          " && mv " + old + " " + renamed + "; else rm -rf " + old + "; fi",
      "else",
      "  mv " + old + " " + renamed,
      "fi",
      "/usr/bin/open " + renamed,
  });
}

bool scriptsBear(std::string_view path) {
  return path.starts_with('/') && path.find_first_of("\"$`\\\n") == std::string_view::npos;
}

}  // namespace vellix
