#include "core/websites.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "core/data_files.h"
#include "core/trap.h"
#include "platform/profile.h"

namespace brelwin {
namespace {

// Endings of names that are files rather than hosts, whatever countries there are.
constexpr std::array<std::string_view, 20> FileEndings = {"bat", "bmp", "csv",  "doc", "docx", "exe", "gif",
                                                          "gpx", "htm", "html", "ini", "jpg",  "kml", "log",
                                                          "ods", "odt", "pdf",  "png", "txt",  "wav"};

bool IsMadeOf(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

// Letters of any language, digits and hyphens.
bool IsLabel(std::string_view label) {
  return !label.empty() && label.find_first_of(" \t!\"$%&'()*+,;<=>@[\\]^_`{|}~") == std::string_view::npos;
}

bool IsDomain(const std::string& label) {
  return label.size() > 1 && IsMadeOf(label, "abcdefghijklmnopqrstuvwxyz") &&
         std::ranges::find(FileEndings, label) == FileEndings.end();
}

bool IsHostName(std::string_view name) {
  const auto labels = Split(name, ".");
  return labels.size() > 1 && std::ranges::all_of(labels, IsLabel) && IsDomain(LowerCase(labels.back()));
}

bool LooksLikeHost(std::string_view address) {
  const auto authority = address.substr(0, address.find_first_of("/?#"));
  const auto colon = authority.find(':');
  if (colon != std::string_view::npos && !IsMadeOf(authority.substr(colon + 1), "0123456789")) return false;
  return IsHostName(authority.substr(0, colon));
}

}  // namespace

std::vector<Website> ReadWebsites(Host& host, std::string_view path) {
  std::vector<Website> websites;
  TrapErrorsSilently([&] {
    const auto text = host.Disk.Read(path).value_or("");
    for (const std::string_view section : {"General", "MySites"}) {
      for (auto& entry : ReadProfileSection(text, section))
        websites.push_back({std::move(entry.Key), std::move(entry.Value)});
    }
  });
  return websites;
}

std::string AddressToOpen(const Host& host, std::string_view address) {
  const auto trimmed = Trim(address);
  if (!LooksLikeHost(trimmed) || FileExists(host, trimmed)) return std::string(trimmed);
  return "https://" + std::string(trimmed);
}

}  // namespace brelwin
