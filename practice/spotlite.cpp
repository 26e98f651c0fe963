#include "spotlite.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

#include "escape.h"
#include "spotlite_pages.h"
#include "world.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::array<std::pair<string_view, SpotliteAnswer>, 13> Names{{
    {"honest", SpotliteAnswer::Honest},
    {"accepted", SpotliteAnswer::Accepted},
    {"wrong-password", SpotliteAnswer::WrongPassword},
    {"unknown-association", SpotliteAnswer::UnknownAssociation},
    {"bad-frequency", SpotliteAnswer::BadFrequency},
    {"failed", SpotliteAnswer::Failed},
    {"without-echo", SpotliteAnswer::WithoutEcho},
    {"server-error", SpotliteAnswer::ServerError},
    {"redirect", SpotliteAnswer::Redirect},
    {"pieces", SpotliteAnswer::Pieces},
    {"slow", SpotliteAnswer::Slow},
    {"cut", SpotliteAnswer::Cut},
    {"late", SpotliteAnswer::Late},
}};

constexpr std::size_t SmallPiece = 16;
constexpr std::int64_t SmallGap = 20;  // milliseconds
constexpr std::size_t SlowPieces = 10;

std::optional<std::pair<SpotliteAnswer, int>> ReadShare(string_view text) {
  const auto colon = std::min(text.find(':'), text.size());
  const auto* const named =
      std::ranges::find(Names, text.substr(0, colon), [](auto& name) { return name.first; });
  int share = 1;
  if (colon < text.size() && std::from_chars(text.data() + colon + 1, text.data() + text.size(), share).ptr !=
                                 text.data() + text.size())
    return {};
  if (named == Names.end() || share < 1 || share > 1'000'000) return {};
  return std::pair(named->second, share);
}

bool IsKnownAssociation(string_view association) {
  return std::ranges::any_of(Summits(), [association](const Summit& summit) {
    return summit.Reference.substr(0, summit.Reference.find('/')) == association;
  });
}

// What the real form looks at, in its order.
SpotliteAnswer Deserved(const FormFields& fields) {
  for (const auto& [name, value] : fields)
    if (value.empty() && name != "comments") return SpotliteAnswer::Failed;
  if (fields.size() != 9) return SpotliteAnswer::Failed;
  if (ValueOf(fields, "password") == "wrong") return SpotliteAnswer::WrongPassword;
  if (!IsKnownAssociation(ValueOf(fields, "assoc"))) return SpotliteAnswer::UnknownAssociation;
  const auto megahertz = std::strtod(ValueOf(fields, "freq").c_str(), nullptr);
  return megahertz >= 1.8 && megahertz <= 250'000 ? SpotliteAnswer::Accepted : SpotliteAnswer::BadFrequency;
}

bool IsTaken(SpotliteAnswer answer) {
  switch (answer) {
    case SpotliteAnswer::Honest:
    case SpotliteAnswer::WrongPassword:
    case SpotliteAnswer::UnknownAssociation:
    case SpotliteAnswer::BadFrequency:
    case SpotliteAnswer::Failed:
    case SpotliteAnswer::ServerError: return false;
    case SpotliteAnswer::Accepted:
    case SpotliteAnswer::WithoutEcho:
    case SpotliteAnswer::Redirect:
    case SpotliteAnswer::Pieces:
    case SpotliteAnswer::Slow:
    case SpotliteAnswer::Cut:
    case SpotliteAnswer::Late: break;
  }
  return true;
}

ScriptedSpot SpotOf(const FormFields& fields) {
  ScriptedSpot spot;
  spot.Station = ValueOf(fields, "actCallsign");
  spot.Summit = ValueOf(fields, "assoc") + "/" + ValueOf(fields, "summit");
  spot.Frequency = ValueOf(fields, "freq");
  spot.Mode = ValueOf(fields, "mode");
  std::ranges::transform(spot.Mode, spot.Mode.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  spot.Comment = ValueOf(fields, "comments");
  spot.Spotter = ValueOf(fields, "callsign");
  return spot;
}

}  // namespace

std::optional<SpotliteMix> ReadSpotliteMix(string_view text) {
  SpotliteMix mix;
  while (true) {
    const auto comma = std::min(text.find(','), text.size());
    const auto share = ReadShare(text.substr(0, comma));
    if (!share) return {};
    mix.push_back(*share);
    if (comma == text.size()) return mix;
    text.remove_prefix(comma + 1);
  }
}

string_view NameOf(SpotliteAnswer answer) {
  return std::ranges::find(Names, answer, [](auto& name) { return name.second; })->first;
}

FormFields ReadForm(string_view body) {
  FormFields fields;
  while (!body.empty()) {
    const auto field = body.substr(0, body.find('&'));
    body.remove_prefix(std::min(field.size() + 1, body.size()));
    const auto equals = std::min(field.find('='), field.size());
    fields.emplace_back(PercentDecoded(field.substr(0, equals)),
                        PercentDecoded(field.substr(std::min(equals + 1, field.size()))));
  }
  return fields;
}

Taken Spotlite::Take(const FormFields& fields) {
  const std::scoped_lock lock(mutex_);
  Taken taken;
  taken.Answer = Draw();
  if (taken.Answer == SpotliteAnswer::Honest) taken.Answer = Deserved(fields);
  taken.Page = PageOf(taken.Answer, fields);
  if (IsTaken(taken.Answer)) taken.Spot = SpotOf(fields);
  return taken;
}

Reply Spotlite::Posted(string_view target) {
  const std::scoped_lock lock(mutex_);
  const auto found = posted_.find(target);
  return found == posted_.end() ? Reply{.Status = 404} : Reply{.Body = found->second};
}

SpotliteAnswer Spotlite::Draw() {
  std::int64_t all = 0;
  for (const auto& [answer, share] : options_.Mix) all += share;
  if (all < 1) return SpotliteAnswer::Honest;
  auto lot = random_.Between(1, all);
  for (const auto& [answer, share] : options_.Mix) {
    lot -= share;
    if (lot <= 0) return answer;
  }
  return SpotliteAnswer::Honest;
}

Reply Spotlite::PageOf(SpotliteAnswer answer, const FormFields& fields) {
  const auto wait = static_cast<std::int64_t>(options_.SecondsOfWait * 1000);
  const auto accepted = AcceptedPage(fields);
  switch (answer) {
    case SpotliteAnswer::Honest:
    case SpotliteAnswer::Accepted: return {.Body = accepted};
    case SpotliteAnswer::WrongPassword: return {.Body = FailedPage("The password you gave was incorrect.")};
    case SpotliteAnswer::UnknownAssociation:
      return {.Body = FailedPage("The association you gave was not valid.")};
    case SpotliteAnswer::BadFrequency: return {.Body = FailedPage("The frequency you gave is not valid.")};
    case SpotliteAnswer::Failed: return {.Body = FailedPage("")};
    case SpotliteAnswer::WithoutEcho: return {.Body = AcceptedPage({})};
    case SpotliteAnswer::ServerError: return {.Status = 500, .Body = ServerErrorPage()};
    case SpotliteAnswer::Pieces: return {.Body = accepted, .PieceSize = SmallPiece, .PieceGap = SmallGap};
    case SpotliteAnswer::Slow:
      return {.Body = accepted,
              .PieceSize = accepted.size() / SlowPieces,
              .PieceGap = wait / static_cast<std::int64_t>(SlowPieces)};
    case SpotliteAnswer::Cut: return {.Body = accepted, .CutAt = accepted.size() / 3};
    case SpotliteAnswer::Late: return {.Body = accepted, .Wait = wait};
    case SpotliteAnswer::Redirect: break;
  }
  const auto address = string(PostedPath) + "?number=" + std::to_string(posted_.size() + 1);
  posted_[address] = accepted;
  return {.Status = 303, .Location = address};
}

}  // namespace practice
