// What the operator's log says of an activation: whether it is worth a call, and why.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "base/date_time.h"
#include "needs/contact.h"

namespace brelwin {

// Marks of an activation. Without a summit only WorkedToday can be set.
struct NeedMarks {
  bool IsNewSummit = false;       // never worked
  bool CompletesSummit = false;   // never worked, but activated by the operator: the contact completes it
  bool IsNewThisYear = false;     // not worked in the year of "now"; set for a new summit too
  bool IsNewAssociation = false;  // no summit of the association was ever worked
  bool IsWorkedToday = false;     // this station on this summit on the UTC day of "now"

  // Whether it counts for the operator.
  bool IsNeeded() const { return (IsNewSummit || IsNewThisYear || IsNewAssociation) && !IsWorkedToday; }

  bool operator==(const NeedMarks&) const = default;
};

// The marks in words, most important first: "new association, new summit"; empty for none.
std::string MarksText(const NeedMarks& marks);

class WorkedLog {
 public:
  // Contacts may come in any order, and twice.
  void Add(const Contact& contact);

  // The marks of a station on a summit; an empty summit is one that is not known. `now` is UTC.
  NeedMarks MarksOf(std::string_view callsign, std::string_view summit, DateTime now) const;

  // Whether nothing is known: then every summit would look new, and marks are not worth showing.
  bool IsEmpty() const { return stations_.empty(); }

 private:
  using LatestContacts = std::unordered_map<std::string, DateTime>;

  LatestContacts summits_;   // by summit
  LatestContacts stations_;  // by base callsign and summit
  std::unordered_set<std::string> associations_;
  std::unordered_set<std::string> activated_;  // summits the operator has been on
};

}  // namespace brelwin
