#include "gateway/spotlite_form.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "gateway/submission_status.h"
#include "radio/mode.h"
#include "radio/numbers.h"
#include "radio/web_address.h"

namespace brelwin {

namespace {

bool IsFormCharacter(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
         (character >= '0' && character <= '9') || character == '/' || character == '-';
}

bool HasFormCharactersOnly(std::string_view text) {
  return std::ranges::all_of(text, IsFormCharacter);
}

bool IsSendable(float frequencyInMhz) {
  return std::isfinite(frequencyInMhz) && frequencyInMhz > 0;
}

SpotliteForm FormOf(std::string_view login, std::string_view password, const Spot& spot) {
  SpotliteForm form;
  form.Login = login;
  form.Password = password;
  form.Activator = Trim(spot.Station);
  form.Frequency = SingleText(spot.FrequencyInMhz);
  form.Mode = ModeWord(spot.ModeString);
  form.Comment = Trim(spot.Comment);
  return form;
}

bool TakeSummit(SpotliteForm& form, std::string_view summitReference) {
  const auto parts = Split(summitReference, "/");
  if (parts.size() != 2) return false;
  form.Association = Trim(parts[0]);
  form.Summit = Trim(parts[1]);
  return !form.Association.empty() && !form.Summit.empty();
}

// The order of the checks decides which reason is given, and whether a spot without a summit is an error.
FormRefusal Check(SpotliteForm& form, const Spot& spot) {
  if (Trim(form.Login).empty()) return FormRefusal::NoLogin;
  if (Trim(form.Password).empty()) return FormRefusal::NoPassword;
  if (form.Activator.empty()) return FormRefusal::NoStation;
  if (Trim(spot.SummitDesignator).empty()) return FormRefusal::NoSummit;
  if (!TakeSummit(form, Trim(spot.SummitDesignator))) return FormRefusal::SummitNotInTwoParts;
  if (!IsSendable(spot.FrequencyInMhz)) return FormRefusal::NoFrequency;
  if (spot.ModeString.empty()) return FormRefusal::NoMode;
  const bool clean = HasFormCharactersOnly(form.Activator + form.Association + form.Summit);
  return clean ? FormRefusal::None : FormRefusal::ForbiddenCharacter;
}

}  // namespace

FormCheck CheckSpotliteForm(std::string_view login, std::string_view password, const Spot& spot) {
  FormCheck check;
  check.Form = FormOf(login, password, spot);
  check.Refusal = Check(check.Form, spot);
  return check;
}

std::string SpotliteFormBody(const SpotliteForm& form) {
  return "actCallsign=" + form.Activator + "&assoc=" + form.Association + "&summit=" + form.Summit +
         "&freq=" + form.Frequency + "&mode=" + form.Mode + "&callsign=" + form.Login +
         "&password=" + form.Password + "&submit=SPOT!" + "&comments=" + URLEncode(form.Comment);
}

std::string_view FormRefusalText(FormRefusal refusal) {
  switch (refusal) {
    case FormRefusal::None: return {};
    case FormRefusal::NoLogin: return "there is no Sotawatch login";
    case FormRefusal::NoPassword: return "there is no Sotawatch password";
    case FormRefusal::NoStation: return "the spot has no station";
    case FormRefusal::NoSummit: return "the spot has no summit";
    case FormRefusal::SummitNotInTwoParts: return "the summit is not of the form association/region-number";
    case FormRefusal::NoFrequency: return "the spot has no frequency";
    case FormRefusal::NoMode: return "the spot has no mode";
    case FormRefusal::ForbiddenCharacter:
      return "the callsign or summit holds a character other than letters, digits, \"/\" and \"-\"";
  }
  return {};
}

namespace {

bool EchoesForm(std::string_view page, const SpotliteForm& form) {
  return Contains(page, form.Activator) && Contains(page, form.Frequency) && Contains(page, form.Mode) &&
         Contains(page, form.Comment);
}

std::int32_t StatusOfFailure(std::string_view page) {
  if (Contains(page, "password you gave was incorrect")) return StatusBadLogin;
  if (Contains(page, "association you gave was not valid")) return StatusBadAssociation;
  if (Contains(page, "frequency you gave is not valid")) return StatusBadFrequency;
  return StatusRefused;
}

}  // namespace

std::int32_t ClassifySpotliteAnswer(std::string_view page, const SpotliteForm& form) {
  if (Contains(page, "submission failed")) return StatusOfFailure(page);
  return EchoesForm(page, form) ? StatusAccepted : StatusUnrecognisedAnswer;
}

}  // namespace brelwin
