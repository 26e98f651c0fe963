#include "platform/proxy_settings.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace brelwin {
namespace {

// host or host:port, as it stands in an address.
struct Endpoint {
  std::string_view Host;
  std::string_view Port;  // empty when none is given
};

Endpoint SplitEndpoint(std::string_view text) {
  if (text.starts_with('[')) {
    const auto end = std::min(text.find(']'), text.size());
    const auto rest = text.substr(std::min(end + 1, text.size()));
    return {text.substr(1, end - 1), rest.starts_with(':') ? rest.substr(1) : std::string_view()};
  }
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || text.find(':', colon + 1) != std::string_view::npos)
    return {text, {}};  // a bare IPv6 address has several
  return {text.substr(0, colon), text.substr(colon + 1)};
}

std::optional<std::uint16_t> PortNumber(std::string_view text, std::uint16_t ifEmpty) {
  if (text.empty()) return ifEmpty;
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size() || port == 0) return {};
  return port;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape =
        text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
    decoded.push_back(isEscape ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]))
                               : text[i]);
    if (isEscape) i += 2;
  }
  return decoded;
}

struct Address {
  std::string_view Scheme;       // empty when there is none
  std::string_view Credentials;  // user or user:password
  Endpoint Server;
};

Address SplitAddress(std::string_view text) {
  Address address;
  if (const auto colon = text.find("://"); colon != std::string_view::npos) {
    address.Scheme = text.substr(0, colon);
    text.remove_prefix(colon + 3);
  }
  text = text.substr(0, text.find_first_of("/?#"));
  if (const auto at = text.rfind('@'); at != std::string_view::npos) {
    address.Credentials = text.substr(0, at);
    text.remove_prefix(at + 1);
  }
  address.Server = SplitEndpoint(text);
  return address;
}

std::optional<Proxy> ParseProxy(std::string_view text) {
  const auto address = SplitAddress(Trim(text));
  if (!address.Scheme.empty() && !EqualsIgnoringCase(address.Scheme, "http")) return {};
  const auto port = PortNumber(address.Server.Port, 80);
  if (address.Server.Host.empty() || !port) return {};
  const auto colon = std::min(address.Credentials.find(':'), address.Credentials.size());
  const auto password = address.Credentials.substr(std::min(colon + 1, address.Credentials.size()));
  return Proxy{std::string(address.Server.Host), *port, PercentDecoded(address.Credentials.substr(0, colon)),
               PercentDecoded(password)};
}

bool IsHostOrBeneath(std::string_view host, std::string_view domain) {
  if (host.size() <= domain.size()) return EqualsIgnoringCase(host, domain);
  return host[host.size() - domain.size() - 1] == '.' &&
         EqualsIgnoringCase(host.substr(host.size() - domain.size()), domain);
}

bool IsExempt(std::string_view entry, std::string_view host, std::uint16_t port) {
  if (entry == "*") return true;
  auto [domain, portText] = SplitEndpoint(entry);
  if (domain.starts_with('*')) domain.remove_prefix(1);
  if (domain.starts_with('.')) domain.remove_prefix(1);
  if (domain.empty() || PortNumber(portText, port) != port) return false;
  return IsHostOrBeneath(host, domain);
}

}  // namespace

ProxySettings ReadProxySettings(
    const std::function<std::optional<std::string>(const std::string& name)>& lookUp) {
  const auto read = [&lookUp](const std::string& name) {
    const auto value = lookUp(name);
    return value ? *value : lookUp(UpperCase(name)).value_or("");
  };
  return {read("http_proxy"), read("https_proxy"), read("no_proxy")};
}

std::optional<Proxy> ProxyForUrl(const ProxySettings& settings, std::string_view url) {
  const auto address = SplitAddress(url);
  const bool isSecure = EqualsIgnoringCase(address.Scheme, "https");
  const auto port = PortNumber(address.Server.Port, isSecure ? 443 : 80);
  if (!port) return {};
  const auto noProxy = Replace(settings.NoProxy, " ", ",");
  const auto entries = Split(noProxy, ",");
  const auto exempts = [&](std::string_view entry) { return IsExempt(entry, address.Server.Host, *port); };
  if (std::any_of(entries.begin(), entries.end(), exempts)) return {};
  return ParseProxy(isSecure ? settings.HttpsProxy : settings.HttpProxy);
}

}  // namespace brelwin
