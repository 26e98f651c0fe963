#include "around/surroundings.h"

#include <set>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "board/activation_state.h"
#include "places/great_circle.h"
#include "places/locator.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

// Whoever types the name of a file has come to its end.
constexpr Milliseconds AfterTyping{1000};
constexpr std::size_t MostKnown = 20'000;
constexpr std::int64_t SecondsOfDay = 86'400;

constexpr std::string_view NoPlaceYet = "Your place is not set: distances and the map need it.";
constexpr std::string_view BadPlace =
    "This is neither a locator, such as IN80dk, nor latitude and longitude, such as 40.4, -3.7.";
constexpr std::string_view NoPlace = "Your place is not set: see Places and log.";
constexpr std::string_view NoSummits = "The summit list was not imported: see Places and log.";
constexpr std::string_view NoCountries = "There is no country list: see Places and log.";
constexpr std::string_view NoLog = "No log is read: see Places and log.";

std::vector<std::string> SummitsOf(const Board& board) {
  std::set<std::string> codes;
  for (const auto& [number, row] : board.Rows())
    if (!row.Who.Summit.empty()) codes.insert(row.Who.Summit);
  return {codes.begin(), codes.end()};
}

}  // namespace

Surroundings::Surroundings(Host& world, PlacesTab& tab)
    : world_(world),
      tab_(tab),
      summits_(world, tab.lblSummits),
      countries_(world, tab.txtCountryFile, tab.lblCountries),
      logs_(world, tab.txtLogFilesToWatch, tab.lblLogFilesToWatch) {}

void Surroundings::Start(const Board& board) {
  summits_.Open();
  summits_.Warm(SummitsOf(board));
  countries_.Read();
  logs_.Start();
  ReadMyPlace();
  watches_.push_back(summits_.Changed.WhenRaised([this] { Forget(); }));
  watches_.push_back(logs_.Changed.WhenRaised([this] { Forget(); }));
  watches_.push_back(tab_.txtMyPlace.Text.WhenChanged([this] { ReadMyPlace(); }));
  watches_.push_back(tab_.txtCountryFile.Text.WhenChanged([this] {
    Later(countriesLater_, [this] {
      countries_.Read();
      Forget();
    });
  }));
  watches_.push_back(
      tab_.txtLogFilesToWatch.Text.WhenChanged([this] { Later(logsLater_, [this] { logs_.Start(); }); }));
}

void Surroundings::Later(TimerHandle& timer, std::function<void()> read) {
  timer = world_.Events.CallAfter(AfterTyping, std::move(read));
}

void Surroundings::ReadMyPlace() {
  const auto text = tab_.txtMyPlace.Text.Get();
  myPlace_ = ReadPlace(text);
  tab_.lblMyPlace.Caption = myPlace_             ? "Your place is in " + LocatorText(*myPlace_)
                            : Trim(text).empty() ? std::string(NoPlaceYet)
                                                 : std::string(BadPlace);
  Forget();
}

void Surroundings::Forget() {
  known_.clear();
  Changed.Raise();
}

RowSurroundings Surroundings::Of(const ActivationRow& row) {
  const auto now = UTCNow(world_.Time);
  const auto day = now.Seconds / SecondsOfDay;
  if (known_.size() > MostKnown) known_.clear();
  auto& known = known_[row.Number];
  if (known.Day != day || known.Summit != row.Who.Summit || known.BaseCallsign != row.Who.BaseCallsign)
    known = {row.Who.BaseCallsign, row.Who.Summit, day, Find(row.Who, now)};
  auto around = known.Around;
  if (!row.Facts.Hearings.empty()) around.Continents = ContinentsOf(row.Facts, now);
  return around;
}

RowSurroundings Surroundings::Find(const StationOnSummit& who, DateTime now) {
  RowSurroundings around;
  AddSummit(around, who.Summit);
  const auto marks = logs_.MarksOf(who.BaseCallsign, who.Summit, now);
  around.Needed = MarksText(marks);
  around.IsNeeded = marks.IsNeeded();
  around.IsWorkedToday = marks.IsWorkedToday;
  return around;
}

void Surroundings::AddSummit(RowSurroundings& around, const std::string& code) {
  const auto* summit = summits_.Find(code);
  if (summit == nullptr) return;
  around.SummitName = summit->Name;
  around.Points = static_cast<int>(summit->Points);
  around.ActivationCount = static_cast<int>(summit->Activations);
  const auto place = PlaceOf(*summit);
  if (!myPlace_ || !place) return;
  around.DistanceInKm = DistanceInKm(*myPlace_, *place);
  around.BearingInDegrees = BearingInDegrees(*myPlace_, *place);
}

std::string Surroundings::ContinentsOf(const ActivationFacts& facts, DateTime now) {
  std::set<std::string_view> continents;
  for (const auto skimmer : SkimmersOf(facts, now))
    if (const auto* country = countries_.Find(skimmer)) continents.insert(country->Continent);
  std::string text;
  for (const auto continent : continents) text.append(text.empty() ? "" : ", ").append(continent);
  return text;
}

std::string Surroundings::Missing(BoardColumn column) const {
  switch (column) {
    case BoardColumn::Distance:
    case BoardColumn::Bearing:
      if (!myPlace_) return std::string(NoPlace);
      return std::string(summits_.IsEmpty() ? NoSummits : "");
    case BoardColumn::Activations: return std::string(summits_.IsEmpty() ? NoSummits : "");
    case BoardColumn::Continents: return std::string(countries_.IsEmpty() ? NoCountries : "");
    case BoardColumn::Needed: return std::string(logs_.IsEmpty() ? NoLog : "");
    default: return {};
  }
}

std::function<bool(const Spot&)> Surroundings::SoundQuestion() const {
  if (!tab_.chkAlarmOnlyNeeded.Value || logs_.IsEmpty()) return {};
  return [this](const Spot& spot) {
    return logs_.MarksOf(spot.stationBaseCallsign, Trim(spot.SummitDesignator), UTCNow(world_.Time))
        .IsNeeded();
  };
}

std::optional<GeoPoint> Surroundings::PlaceOfSummit(const std::string& summit) {
  const auto* found = summits_.Find(summit);
  return found == nullptr ? std::nullopt : PlaceOf(*found);
}

std::optional<GeoPoint> Surroundings::PlaceOfSkimmer(std::string_view callsign) {
  const auto* country = countries_.Find(callsign);
  return country == nullptr ? std::nullopt : std::optional(country->Place);
}

}  // namespace brelwin
