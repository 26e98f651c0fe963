// What must hold of the form and its answers whatever outside text holds. Each property takes any bytes.
#pragma once

#include <string>
#include <string_view>

#include "base/encoding.h"
#include "gateway/spotlite_form.h"
#include "gateway/spotlite_submission.h"
#include "gateway_story.h"

namespace brelwin::test {

// A spot of outside text: the pieces of the bytes between line feeds.
inline Spot SpotOfOutsideText(std::string_view bytes) {
  Spot spot;
  std::string* const fields[] = {&spot.Station, &spot.SummitDesignator, &spot.ModeString, &spot.Comment};
  const auto pieces = Split(bytes, "\n");
  for (std::size_t index = 0; index < std::min(pieces.size(), std::size(fields)); ++index)
    *fields[index] = pieces[index];
  spot.FrequencyInMhz = 14.062F;
  return spot;
}

// Outside text neither adds a field to the form nor changes one that it has no part in.
inline bool FormNeverGainsAField(std::string_view bytes) {
  const auto check = CheckSpotliteForm("q0zz", "secret", SpotOfOutsideText(bytes));
  if (check.Refusal != FormRefusal::None) return true;
  const auto body = SpotliteFormBody(check.Form);
  if (Split(body, "&").size() != 9 || Split(body, "=").size() != 10) return false;
  auto fields = FormFields(body);
  return fields["callsign"] == "q0zz" && fields["password"] == "secret" && fields["freq"] == "14.062" &&
         fields["actCallsign"] == check.Form.Activator && fields["submit"] == "SPOT!";
}

// An answer means the same wherever its chunks are cut; the first byte says where in it the second one
// begins.
inline bool AnswerMeansTheSameAtAnyCut(std::string_view bytes) {
  if (bytes.empty()) return true;
  GatewayStory story;
  const auto spot = story.SkimmerSpot("G4ABC", "14.062");
  const auto cut = static_cast<std::size_t>(static_cast<unsigned char>(bytes[0]));
  const auto page = std::string(1024 - cut, '\n') + std::string(bytes.substr(1));
  story.Internet.AnswerPost({.Body = page});
  const auto result =
      SendSpotToSotawatch(story.World, story.TheGateway.Transfer, story.Config, "q0zz", "secret", spot.get());
  const auto text = TextFromBytes(page);
  const auto form = CheckSpotliteForm("q0zz", "secret", *spot).Form;
  return result.Status == ClassifySpotliteAnswer(text, form) &&
         story.TheGateway.Transfer.Latest().LastResponseText == text &&
         story.Disk.Text("/brelwin/GatewayServerResponseLog.txt").ends_with("\r\n" + text);
}

}  // namespace brelwin::test
