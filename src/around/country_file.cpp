#include "around/country_file.h"

#include "base/record_faults.h"
#include "base/text.h"
#include "core/program_path.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr std::size_t MostFound = 10'000;

}  // namespace

void CountryFile::Read() {
  found_.clear();
  list_.reset();
  LogErrors(world_, "ReadCountries", false, [&] {
    ReadFile();
    return true;
  });
}

void CountryFile::ReadFile() {
  const auto named = FullLogName(world_, file_.Text.Get());
  const auto path = named.empty() ? std::string(SystemCountryFile) : named;
  const auto bytes = world_.Disk.Read(path);
  if (!bytes) {
    state_.Caption = named.empty() ? "No country list: name a file cty.dat, or install hamradio-files."
                                   : path + " cannot be read";
    if (!named.empty()) LogEvent(world_, "ReadCountries - " + path + ": the file cannot be read");
    return;
  }
  CountryList list(*bytes);
  const auto faults = FaultWords(list.Faults());
  if (!faults.empty()) LogEvent(world_, "ReadCountries - " + path + ": " + faults);
  state_.Caption = std::to_string(list.PrefixCount()) + " prefixes and callsigns from " + path +
                   (faults.empty() ? "" : ". " + faults);
  if (list.PrefixCount() > 0) list_ = std::move(list);
}

const Country* CountryFile::Find(std::string_view callsign) {
  if (!list_) return nullptr;
  if (found_.size() > MostFound) found_.clear();
  const auto [place, isNew] = found_.try_emplace(std::string(callsign), nullptr);
  if (isNew) place->second = list_->Find(callsign);
  return place->second;
}

}  // namespace brelwin
