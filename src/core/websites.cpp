#include "core/websites.h"

#include "core/trap.h"
#include "platform/profile_text.h"

namespace brelwin {

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

}  // namespace brelwin
