// The Spotlite form: posted spots and what is answered to them, as the real form would or in any way that is
// asked for.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "random.h"
#include "reply.h"
#include "scripted_spot.h"

namespace practice {

inline constexpr std::string_view SpotlitePath = "/Spotlite/postSpot";
inline constexpr std::string_view PostedPath = "/Spotlite/posted";

enum class SpotliteAnswer : std::uint8_t {
  Honest,  // what the form deserves
  Accepted,
  WrongPassword,
  UnknownAssociation,
  BadFrequency,
  Failed,       // for a reason that has no words
  WithoutEcho,  // accepted, but the page does not show what was posted
  ServerError,  // a page of status 500; the spot is not taken
  Redirect,     // accepted; the page that says so lies elsewhere
  Pieces,       // accepted, in many small pieces
  Slow,         // accepted; the page begins at once and ends after the wait
  Cut,          // accepted, but the connection ends in the middle of the page
  Late,         // accepted; the page comes after the wait
};

// Answers with their shares, drawn at random for each post.
using SpotliteMix = std::vector<std::pair<SpotliteAnswer, int>>;

// "late" or "accepted:8,cut:1,late:1"; empty for what is not understood.
std::optional<SpotliteMix> ReadSpotliteMix(std::string_view text);

std::string_view NameOf(SpotliteAnswer answer);

struct SpotliteOptions {
  SpotliteMix Mix = {{SpotliteAnswer::Honest, 1}};
  double SecondsOfWait = 8;  // of slow and late answers
  double SecondsOfLag = 5;   // until an accepted spot is in the feeds
};

// The fields of a form in their order, decoded.
using FormFields = std::vector<std::pair<std::string, std::string>>;
FormFields ReadForm(std::string_view body);

struct Taken {
  SpotliteAnswer Answer = SpotliteAnswer::Honest;  // never this one: what the form deserved
  Reply Page;
  std::optional<ScriptedSpot> Spot;  // set for a spot that was accepted
};

class Spotlite {
 public:
  Spotlite(std::uint64_t seed, SpotliteOptions options) : options_(std::move(options)), random_(seed, 501) {}

  // May be called from any thread, as the other one.
  Taken Take(const FormFields& fields);

  // The page to which a redirect led.
  Reply Posted(std::string_view target);

  const SpotliteOptions& Options() const { return options_; }

 private:
  SpotliteAnswer Draw();
  Reply PageOf(SpotliteAnswer answer, const FormFields& fields);

  SpotliteOptions options_;
  std::mutex mutex_;
  Random random_;
  std::map<std::string, std::string, std::less<>> posted_;  // pages of redirects by their addresses
};

}  // namespace practice
