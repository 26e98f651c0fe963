// The country list that the user has, or that the system brings along.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "controls/control.h"
#include "places/country_list.h"
#include "platform/host.h"

namespace brelwin {

// Where Debian's package hamradio-files puts it.
inline constexpr std::string_view SystemCountryFile = "/usr/share/hamradio-files/cty.dat";

class CountryFile {
 public:
  // The box names the file; an empty one means that of the system. The label says what was read.
  CountryFile(Host& world, const TextBox& file, Label& state) : world_(world), file_(file), state_(state) {}

  // Reads the file anew.
  void Read();

  // The country of a callsign; null when it is not known. It stays valid until the list is read anew.
  const Country* Find(std::string_view callsign);

  bool IsEmpty() const { return !list_; }

 private:
  void ReadFile();

  Host& world_;
  const TextBox& file_;
  Label& state_;
  std::optional<CountryList> list_;
  std::unordered_map<std::string, const Country*> found_;  // skimmers are few and asked for again and again
};

}  // namespace brelwin
