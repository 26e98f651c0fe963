// The form by which a spot is posted: what it needs, what it cannot carry, its body, and what the server's
// page says about it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "spots/spot.h"

namespace brelwin {

struct SpotliteForm {
  std::string Login;
  std::string Password;
  std::string Activator;
  std::string Association;
  std::string Summit;
  std::string Frequency;  // MHz
  std::string Mode;       // as a word of the form, "cw"
  std::string Comment;
};

enum class FormRefusal : std::uint8_t {
  None,
  NoLogin,
  NoPassword,
  NoStation,
  NoSummit,  // not an error: such a spot is passed over in silence
  SummitNotInTwoParts,
  NoFrequency,
  NoMode,
  ForbiddenCharacter,
};

struct FormCheck {
  FormRefusal Refusal = FormRefusal::None;
  SpotliteForm Form;  // whole only without a refusal
};

// Checks the spot and takes the form's values from it. Only the comment is encoded in the body, so a callsign
// or summit holding anything but ASCII letters, digits, "/" and "-" is refused: it could add a field.
FormCheck CheckSpotliteForm(std::string_view login, std::string_view password, const Spot& spot);

// The body of the form, application/x-www-form-urlencoded: nine fields, always in the same order.
std::string SpotliteFormBody(const SpotliteForm& form);

// Why a spot was not posted, in words; empty for None.
std::string_view FormRefusalText(FormRefusal refusal);

// Accepted when the page does not speak of failure and shows the callsign, frequency, mode and comment of the
// form; unrecognised when one of them is missing; else the status of the failure that it names. Letter case
// matters.
std::int32_t ClassifySpotliteAnswer(std::string_view page, const SpotliteForm& form);

}  // namespace brelwin
