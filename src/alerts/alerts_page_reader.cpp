#include "alerts/alerts_page_reader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "alerts/page_markup.h"
#include "base/text.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::string_view HeadingBegin = "<span class=\"alertDate\">";
constexpr std::string_view TableBegin = "<table class=\"spots\">";
constexpr std::string_view TableEnd = "</table>";
constexpr std::string_view PopUpBegin = "<tr onMouseOver=\"return overlib('";
constexpr std::string_view PopUpEnd = "',";
constexpr std::string_view CommentBegin = "<span class=\"comment\">";
constexpr std::string_view PosterBegin = "<span class=\"poster\">";
constexpr std::string_view SpanEnd = "</span>";
constexpr std::string_view NoBreakSpace = "&nbsp;";

// The text with a blank in place of each of the tags.
std::string WithoutTags(std::string_view text, std::initializer_list<std::string_view> tags) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto* const tag =
        std::ranges::find_if(tags, [text](std::string_view known) { return text.starts_with(known); });
    const bool isTag = tag != tags.end();
    result.append(isTag ? " " : text.substr(0, 1));
    text.remove_prefix(isTag ? tag->size() : 1);
    const auto plain = std::min(text.find('<'), text.size());
    result.append(text.substr(0, plain));
    text.remove_prefix(plain);
  }
  return result;
}

template <class Integer>
Integer TruncatedNumber(std::string_view text) {
  using Limits = std::numeric_limits<Integer>;
  return static_cast<Integer>(std::clamp<double>(ToDouble(text), Limits::min(), Limits::max()));
}

// "Tuesday 24th November 2026", whatever the first word is.
std::optional<DateTime> DateOfHeading(std::string_view heading) {
  const auto text = PlainText(heading);
  std::string_view rest = text;
  TakeWord(rest);
  std::string date(TakeWord(rest));
  for (const auto* suffix : {"st", "nd", "rd", "th"}) date = Without(std::move(date), suffix);
  date.append(" ").append(TakeWord(rest));
  date.append(" ").append(TakeWord(rest));
  return ReadDateTime(date);
}

// Sets what depends on both; a time with a zone may lead into a day beside.
void SetTime(SOTAAlert& alert, std::string_view text) {
  constexpr std::int64_t SecondsPerDay = 86400;
  alert.UTCAlertTimeStr = text;
  const auto time = ReadDateTime(text);
  const auto seconds = time ? time->Seconds - DayZero().Seconds : 2 * SecondsPerDay;
  if (std::abs(seconds) >= 2 * SecondsPerDay) return;
  alert.UTCAlertTime = time;
  if (alert.UTCAlertDate) alert.UTCAlertDateAndTime = AddSeconds(*alert.UTCAlertDate, seconds);
}

void SetSummit(SOTAAlert& alert, std::string_view raw) {
  const auto blanked = Without(Without(WithBlanks(std::string(raw)), "points"), "point");
  auto text = Trim(blanked);
  if (text.ends_with('.')) text = Trim(text.substr(0, text.size() - 1));
  alert.SummitDescription = PlainText(text);
  alert.SummitName = PlainText(TakePart(text, ','));
  alert.SummitElevationInMeters =
      TruncatedNumber<std::int32_t>(Replace(PlainText(TakePart(text, ',')), "m", ""));
  alert.SummitPoints = TruncatedNumber<std::int16_t>(PlainText(TakePart(text, ',')));
}

void SetPopUp(SOTAAlert& alert, std::string_view raw) {
  constexpr std::string_view SummitMark = "Summit:";
  const auto text = Without(WithoutTags(raw, {"<strong>", "</strong>", "<br>"}), "Operator:");
  const auto mark = std::min(text.find(SummitMark), text.size());
  alert.OperatorName = PlainText(std::string_view(text).substr(0, mark));
  if (mark < text.size()) SetSummit(alert, std::string_view(text).substr(mark + SummitMark.size()));
}

// The position of the word "on"; a link may follow it without a blank.
std::size_t FindOn(std::string_view cell) {
  constexpr std::string_view On = " on";
  auto on = cell.find(On);
  while (on != std::string_view::npos) {
    const auto next = cell.substr(on + On.size(), 1);
    if (next == " " || next == "<") break;
    on = cell.find(On, on + 1);
  }
  return on;
}

// "callsign on <a …>summit</a>".
void SetStationsAndSummit(AnnouncedActivation& activation, std::string_view cell) {
  const auto on = FindOn(cell);
  if (on == std::string_view::npos) return;
  SetStations(activation, PlainText(cell.substr(0, on)));
  auto link = cell.substr(on);
  activation.Alert.SummitDesignator = PlainText(TakeBetween(link, ">", "<").value_or(""));
}

// The text of the next cell, empty when there is none, with a blank in place of each of the tags.
std::string TakeCellText(std::string_view& cells, std::initializer_list<std::string_view> tags) {
  return WithBlanks(WithoutTags(TakeCell(cells).value_or(""), tags));
}

void SetCells(AnnouncedActivation& activation, std::string_view cells) {
  auto time = TakeCellText(cells, {"<strong>", "</strong>"});
  const auto place = TakeCellText(cells, {"<strong>", "</strong>", "<br>"});
  auto frequencies = TakeCellText(cells, {"<strong>", "</strong>"});
  SetTime(activation.Alert, PlainText(Without(std::move(time), NoBreakSpace)));
  SetStationsAndSummit(activation, Replace(place, NoBreakSpace, " "));
  activation.Alert.FrequencyModes = PlainText(Without(std::move(frequencies), NoBreakSpace));
}

// "(Posted by callsign)".
std::string PosterOf(std::string_view raw) {
  const auto text = PlainText(Without(Without(std::string(raw), ")"), "("));
  std::string_view rest = text;
  TakeWord(rest);
  TakeWord(rest);
  return std::string(TakeWord(rest));
}

// Empty for a table without a row.
std::optional<AnnouncedActivation> ReadTable(std::string_view table, std::optional<DateTime> date) {
  auto cells = table;
  const auto popUp = TakeBetween(cells, PopUpBegin, PopUpEnd);
  if (!popUp) return {};
  std::optional<AnnouncedActivation> activation(std::in_place);
  auto& alert = activation->Alert;
  SetAlertDate(alert, date);
  SetPopUp(alert, *popUp);
  SetCells(*activation, cells);
  auto commentRest = table;
  alert.Comment = PlainText(TakeBetween(commentRest, CommentBegin, SpanEnd).value_or(""));
  auto posterRest = table;
  alert.Spotter = PosterOf(TakeBetween(posterRest, PosterBegin, SpanEnd).value_or(""));
  return activation;
}

class PageReader {
 public:
  PageReader(const PageReadRequest& request, const ActivationTaker& take) : request_(request), take_(take) {}

  AlertsPageSummary Read(std::string_view page) {
    auto heading = page.find(HeadingBegin);
    while (heading != std::string_view::npos) {
      summary_.HasDays = true;
      page.remove_prefix(heading + HeadingBegin.size());
      heading = page.find(HeadingBegin);
      if (!ReadDay(page.substr(0, heading))) break;
    }
    return summary_;
  }

 private:
  // A table that is empty or has no row ends the day. False when reading must stop here.
  bool ReadDay(std::string_view day) {
    const auto heading = TakeBetween(day, "", SpanEnd);
    const auto date = heading ? DateOfHeading(*heading) : std::nullopt;
    while (true) {
      const auto table = TakeBetween(day, TableBegin, TableEnd);
      if (!table || table->empty()) return true;
      auto activation = ReadTable(*table, date);
      if (!activation) return true;
      if (IsTooFarAhead(activation->Alert, request_)) return false;
      activation->Alert.LocalDateAndTimeRetrieved = request_.LocalNow;
      ++summary_.NumberOfActivations;
      take_(std::move(*activation));
    }
  }

  const PageReadRequest& request_;
  const ActivationTaker& take_;
  AlertsPageSummary summary_;
};

}  // namespace

// Markup is no callsign: what is taken here is learned as an activator.
void SetStations(AnnouncedActivation& activation, std::string_view callsigns) {
  if (Contains(callsigns, "<")) return;
  std::string second;
  const auto first = GetBaseCallsign(callsigns, second);
  if (!first.empty()) activation.Stations.push_back(first);
  if (!second.empty() && second != first) activation.Stations.push_back(second);
  activation.Alert.AnnouncedCallsign = callsigns;
}

bool IsTooFarAhead(const SOTAAlert& alert, const PageReadRequest& request) {
  if (request.MaximumHoursAhead <= 0 || !alert.UTCAlertDateAndTime) return false;
  const auto hours = MinutesBetween(request.UtcNow, *alert.UTCAlertDateAndTime) / 60;
  return hours > request.MaximumHoursAhead;
}

AlertsPageSummary ReadAlertsPage(std::string_view page, const PageReadRequest& request,
                                 const ActivationTaker& take) {
  return PageReader(request, take).Read(page);
}

}  // namespace brelwin
