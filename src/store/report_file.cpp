#include "store/report_file.hpp"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <string_view>

#include "records/trimmed.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

constexpr std::string_view kUntitled = "Vellix report";
constexpr std::string_view kEnding = ".pdf";
// Stands for what is no UTF-8.
constexpr UChar32 kBroken = 0xfffd;

// Ends a line or steers a terminal.
bool isControl(UChar32 letter) {
  const auto type = u_charType(letter);
  return type == U_CONTROL_CHAR || type == U_LINE_SEPARATOR || type == U_PARAGRAPH_SEPARATOR;
}

// One that has a look of its own, and does not only hide the name or end it.
bool isSeen(UChar32 letter) {
  return letter != '.' && !isControl(letter) && !u_isUWhiteSpace(letter) &&
         !u_hasBinaryProperty(letter, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

// A name of one file that reads in the order it is written in. It may still begin or end in blanks.
std::string harmless(std::string_view title) {
  icu::UnicodeString name;
  bool seen = false;
  const auto letters = icu::UnicodeString::fromUTF8({title.data(), static_cast<int>(title.size())});
  for (int i = 0; i < letters.length(); i = letters.moveIndex32(i, 1)) {
    const UChar32 letter = letters.char32At(i);
    if (letter == kBroken || u_hasBinaryProperty(letter, UCHAR_BIDI_CONTROL)) continue;
    seen = seen || isSeen(letter);
    if (letter == '/' || letter == '\\') {
      name.append(u'-');
    } else if (isControl(letter)) {
      name.append(u' ');
    } else {
      name.append(letter);
    }
  }
  std::string text;
  if (seen) name.toUTF8String(text);
  return text;
}

// What begins with a dot is hidden, or is no name at all.
std::string_view withoutLeadingDots(std::string_view name) {
  name = trimmed(name);
  while (name.starts_with('.')) name = trimmed(name.substr(1));
  return name;
}

// At most so many bytes of whole characters.
std::string_view cut(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  while (most > 0 && !beginsCharacter(text[most])) --most;
  return trimmed(text.substr(0, most));
}

std::string baseOf(const std::optional<std::string>& title) {
  const std::string name = harmless(title.value_or(""));
  const std::string_view base = withoutLeadingDots(name);
  return std::string{base.empty() ? kUntitled : base};
}

std::string nthName(const std::string& base, int n) {
  const std::string ending = (n > 1 ? " " + std::to_string(n) : "") + std::string{kEnding};
  return std::string{cut(base, kMostFileName - ending.size())} + ending;
}

}  // namespace

std::string reportFileName(const std::optional<std::string>& title, int n) {
  return nthName(baseOf(title), n);
}

std::optional<std::string> keepReport(const std::optional<std::string>& title,
                                      ReportFolder& folder) {
  using Place = ReportFolder::Place;
  using Written = ReportFolder::Written;
  const std::string base = baseOf(title);
  for (int n = 1; n <= kMostReportNames; ++n) {
    std::string name = nthName(base, n);
    Place place = folder.look(name);
    if (place == Place::free) {
      const Written written = folder.write(name);
      if (written == Written::whole) return name;
      if (written == Written::failed) return std::nullopt;
      // Somebody was faster, perhaps with the same report.
      place = folder.look(name);
    }
    if (place == Place::same) return name;
  }
  return std::nullopt;
}

}  // namespace vellix
