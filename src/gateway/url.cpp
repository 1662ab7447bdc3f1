#include "gateway/url.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>

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

struct Authority {
  std::string_view user;  // empty without one
  std::string_view host;
  std::string_view port;  // with its colon; empty without one
};

Authority authorityOf(std::string_view text) {
  Authority parts;
  if (const auto at = text.rfind('@'); at != std::string_view::npos) {
    parts.user = text.substr(0, at);
    text = text.substr(at + 1);
  }
  const auto start = text.starts_with('[') ? text.find(']') : 0;
  const auto colon = text.find(':', start);
  parts.host = text.substr(0, colon);
  if (colon != std::string_view::npos) parts.port = text.substr(colon);
  return parts;
}

// What no URL may hold in any of its parts, whether or not a client would be lenient.
bool isCleanUrl(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c <= 0x20 || c == 0x7f ||
        std::string_view{"\"<>\\^`{|}"}.find(text[i]) != std::string_view::npos) {
      return false;
    }
    if (c != '%') continue;
    if (i + 2 >= text.size() || hexValue(text[i + 1]) < 0 || hexValue(text[i + 2]) < 0)
      return false;
  }
  return true;
}

bool isIpv6(std::string_view host) {
  if (!host.starts_with('[') || !host.ends_with(']')) return false;
  in6_addr address{};
  return ::inet_pton(AF_INET6, std::string{host.substr(1, host.size() - 2)}.c_str(), &address) == 1;
}

// One part of a host name. Names of other scripts are for the network's library to judge.
bool isLabel(std::string_view label) {
  return !label.empty() && label.size() <= 63 && !label.starts_with('-') && !label.ends_with('-') &&
         std::ranges::all_of(label, [](char c) {
           return isAlnum(c) || c == '-' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
         });
}

bool isHostName(std::string_view host) {
  if (host.ends_with('.')) host.remove_suffix(1);
  if (host.size() > 253) return false;
  for (auto dot = host.find('.'); dot != std::string_view::npos; dot = host.find('.')) {
    if (!isLabel(host.substr(0, dot))) return false;
    host = host.substr(dot + 1);
  }
  return isLabel(host);
}

bool isPort(std::string_view port) {
  if (port.empty() || port == ":") return true;
  unsigned number = 0;
  const auto [end, error] = std::from_chars(port.data() + 1, port.data() + port.size(), number);
  return error == std::errc{} && end == port.data() + port.size() && number >= 1 &&
         number <= 65'535;
}

// Of what stands behind the scheme and its colon.
std::string_view authorityIn(std::string_view rest) {
  return rest.starts_with("//") ? rest.substr(2, rest.substr(2).find_first_of("/?#"))
                                : std::string_view{};
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
  const auto colon = text.find(':');
  if (!isCleanUrl(text) || colon == std::string_view::npos) return false;
  const std::string scheme = lower(text.substr(0, colon));
  const Authority authority = authorityOf(authorityIn(text.substr(colon + 1)));
  return (scheme == "http" || scheme == "https") &&
         authority.user.find_first_of("@[]") == std::string_view::npos &&
         (isIpv6(authority.host) || isHostName(authority.host)) && isPort(authority.port);
}

bool isLinkTarget(std::string_view text) {
  const auto colon = text.find(':');
  const bool mail = colon != std::string_view::npos && lower(text.substr(0, colon)) == "mailto";
  return mail ? isCleanUrl(text) && colon + 1 < text.size() : isWebUrl(text);
}

std::string originOf(std::string_view webUrl) {
  const auto colon = webUrl.find(':');
  const std::string scheme = lower(webUrl.substr(0, colon));
  const Authority authority = authorityOf(authorityIn(webUrl.substr(colon + 1)));
  std::string_view port = authority.port;
  if (port == ":" || port == (scheme == "https" ? ":443" : ":80")) port = {};
  return scheme + "://" + lower(authority.host) + std::string{port};
}

std::string appendPath(std::string base, std::string_view path) {
  if (const auto tail = base.find_first_of("?#"); tail != std::string::npos) base.resize(tail);
  while (base.ends_with('/')) base.pop_back();
  return base + "/" + percentEncode(path, "-._~/!$&'()*+,;=:@");
}

std::string withQuery(std::string url, const QueryItems& query) {
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
  parts.host = lower(authorityOf(authorityIn(rest)).host);
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
