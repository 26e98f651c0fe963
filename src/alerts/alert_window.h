// The window of time around an alert: the user's, a station's own from the overrides file, or the activator's
// from the markers "S-" and "S+" in the comment.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/host.h"

namespace brelwin {

// Minutes before and after the alert time in which a spot matches. Below 1 means the user's own.
struct AlertWindow {
  std::int32_t MinutesBefore = 0;
  std::int32_t MinutesAfter = 0;

  bool operator==(const AlertWindow&) const = default;
};

// The windows that "SOTAAlertDurationOverrides.ini" gives to stations, read once.
class DurationOverrides {
 public:
  // A missing or unreadable file gives no overrides.
  static DurationOverrides Load(const Host& host);

  // The station's window; zeroes when it has none.
  AlertWindow Of(std::string_view baseCallsign) const;

 private:
  std::unordered_map<std::string, AlertWindow> windows_;
};

// The window of an alert as announced, and whether it is the activator's own or an override, not the user's.
struct AnnouncedWindow {
  AlertWindow Window;
  bool IsCustom = false;
};

// The override, amended by the markers in the comment: "S-1.5" opens the window 90 minutes before the alert
// time, "s+2" closes it 120 minutes after it. The first marker of a kind counts; its number is the digits and
// "." up to the first other character, blanks left out, and is held at the largest when it is too large.
AnnouncedWindow WindowOfAlert(const AlertWindow& override, std::string_view comment);

// The markers that WindowOfAlert reads, in quotes and each with its number: "S-1.5" and "S+3". Of one that is
// a part of a summit's reference the reference is told too. Empty when the comment opens no window.
std::string MarkersInWords(std::string_view comment);

// The text of the shape of a summit reference, "GM/SS-064" or "SS-064", of which the "S-" that WindowOfAlert
// reads is a part, in capitals; empty when it stands by itself or is not there.
std::string ReferenceReadAsMarker(std::string_view comment);

}  // namespace brelwin
