#include "gateway/url.hpp"

#include <algorithm>

namespace vellix {
namespace {

bool isAlnum(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string lower(std::string_view text) {
  std::string out{text};
  std::ranges::transform(out, out.begin(), asciiLower);
  return out;
}

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string percentEncode(std::string_view text, std::string_view kept) {
  static constexpr std::string_view hex = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    if (isAlnum(c) || kept.find(c) != std::string_view::npos) {
      out += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      out += {'%', hex[byte >> 4], hex[byte & 15]};
    }
  }
  return out;
}

std::string percentDecode(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '%' && i + 2 < text.size();
    const int high = escape ? hexValue(text[i + 1]) : -1;
    const int low = escape ? hexValue(text[i + 2]) : -1;
    if (high >= 0 && low >= 0) {
      out += static_cast<char>(high * 16 + low);
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

bool isWebUrl(std::string_view text) {
  const bool clean =
      std::ranges::all_of(text, [](unsigned char c) { return c > 0x20 && c != 0x7f; });
  const auto parts = parseUrl(text);
  return clean && parts && (parts->scheme == "http" || parts->scheme == "https") &&
         !parts->host.empty();
}

std::string appendPath(std::string base, std::string_view path) {
  if (const auto tail = base.find_first_of("?#"); tail != std::string::npos) base.resize(tail);
  while (base.ends_with('/')) base.pop_back();
  return base + "/" + percentEncode(path, "-._~/!$&'()*+,;=:@");
}

std::string withQuery(std::string url, const std::map<std::string, std::string>& query) {
  if (query.empty()) return url;
  if (const auto tail = url.find_first_of("?#"); tail != std::string::npos) url.resize(tail);
  char joint = '?';
  for (const auto& [name, value] : query) {
    url += joint + percentEncode(name) + "=" + percentEncode(value);
    joint = '&';
  }
  return url;
}

const std::optional<std::string>* UrlParts::item(std::string_view name) const {
  const auto found = std::ranges::find(query, name, [](const auto& entry) { return entry.first; });
  return found == query.end() ? nullptr : &found->second;
}

std::optional<UrlParts> parseUrl(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0) return std::nullopt;
  UrlParts parts;
  parts.scheme = lower(text.substr(0, colon));
  std::string_view rest = text.substr(colon + 1);
  if (const auto fragment = rest.find('#'); fragment != std::string_view::npos) {
    rest = rest.substr(0, fragment);
  }
  std::string_view query;
  if (const auto mark = rest.find('?'); mark != std::string_view::npos) {
    query = rest.substr(mark + 1);
    rest = rest.substr(0, mark);
  }
  if (rest.starts_with("//")) {
    std::string_view authority = rest.substr(2, rest.substr(2).find('/'));
    if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
      authority = authority.substr(at + 1);
    }
    const auto port = authority.starts_with('[') ? authority.find(':', authority.find(']'))
                                                 : authority.find(':');
    parts.host = lower(authority.substr(0, port));
  }
  while (!query.empty()) {
    const auto end = query.find('&');
    const std::string_view entry = query.substr(0, end);
    query = end == std::string_view::npos ? std::string_view{} : query.substr(end + 1);
    const auto equals = entry.find('=');
    std::optional<std::string> value;
    if (equals != std::string_view::npos) value = percentDecode(entry.substr(equals + 1));
    if (!entry.empty()) parts.query.emplace_back(percentDecode(entry.substr(0, equals)), value);
  }
  return parts;
}

}  // namespace vellix
