// One announced activation: a station, a summit, a time and the window around it in which a spot counts as
// this activation; the keys by which it is known from one reading of the page to the next, and the words by
// which it is withdrawn. Alerts travel through the modifications file as one line of delimited data.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"

namespace brelwin {

struct SOTAAlert {
  std::string AlertKey;
  std::string AnnouncedCallsign;  // of the page, with prefix and suffix, also where it names two stations
  std::string Comment;
  std::string FrequencyModes;  // as announced
  std::string ID;              // equal to AlertKey
  bool IsSelfSpotAlert = false;
  std::optional<DateTime> LocalDateAndTimeRetrieved;
  std::int32_t MaxMinutesBeforeAlertTime = 0;  // minutes; below 1 the user's own window counts
  std::int32_t MaxMinutesAfterAlertTime = 0;   // minutes; below 1 the user's own window counts
  std::string OperatorName;
  std::string Spotter;  // who posted the alert
  std::string Station;
  std::string stationBaseCallsign;
  std::string SummitDesignator;  // association/region-number
  std::string SummitName;
  std::int32_t SummitElevationInMeters = 0;
  std::int32_t SummitElevationInFeet = 0;
  std::int16_t SummitPoints = 0;
  std::string SummitDescription;                // name, height and points; ends in the points figure
  std::string UTCAlertDateStr;                  // "yyyy-mm-dd"
  std::optional<DateTime> UTCAlertDate;         // midnight of the day
  std::optional<DateTime> UTCAlertDateAndTime;  // empty: the alert never matches a spot
  std::string UTCAlertTimeStr;                  // as announced
  std::optional<DateTime> UTCAlertTime;         // the time of day, on day zero
};

// Alerts are not changed once they are in a collection, so whoever holds one may keep it.
using AlertPointer = std::shared_ptr<const SOTAAlert>;

// What stands between the fields of delimited data.
constexpr std::string_view DataDelimiter() {
  return "||";
}

// The text in the form that it has as a field of delimited data: each "||" becomes "-". A key is made with
// it, so that the key in a file is the key in the collection.
std::string DelimitedField(std::string_view text);

// The alert as 13 fields: date and time, time text, station, base callsign, summit, operator, comment,
// spotter, frequencies, the window's minutes before and after, self-spot flag (-1 or 0) and key. A single "|"
// stays; only where two of them face each other across a delimiter, and so would make another one, a "|" at
// the end of a text becomes "-" as well.
std::string DelimitedData(const SOTAAlert& alert);

// Takes the fields of such a line into the alert; the key becomes its ID as well. A first field that is no
// date leaves all five date and time fields as they are. False when the line has fewer than 13 fields: those
// that are there have been taken. Minutes are truncated, and held within 32 bits.
[[nodiscard]] bool SetDelimitedData(SOTAAlert& alert, std::string_view line);

// Sets the date and its text, or empties both.
void SetAlertDate(SOTAAlert& alert, std::optional<DateTime> date);

// Sets all date and time fields but the time's text.
void SetAlertDateAndTime(SOTAAlert& alert, DateTime time);

// Time, base callsign and summit of an alert with a window of its own.
std::string CustomWindowKey(const SOTAAlert& alert);

// The same with the first 10 characters of the comment, blanks left out: an activator who edits the beginning
// of the comment makes a new alert.
std::string CommentKey(const SOTAAlert& alert);

// Of an alert that a spot made.
std::string SpotAlertKey(const SOTAAlert& alert);

// "CANCELLED" or "CANCELED", in any letter case.
bool HoldsCancellation(std::string_view comment);

// "RBNN" or "NOTARNLINK", in any letter case and with blanks anywhere.
bool HoldsOptOutWord(std::string_view comment);

}  // namespace brelwin
