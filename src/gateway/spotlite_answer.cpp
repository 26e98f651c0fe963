#include "gateway/spotlite_answer.h"

#include "base/text.h"
#include "gateway/submission_status.h"

namespace brelwin {
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
