#include "spots/service_terms.h"

#include "base/text.h"
#include "radio/web_address.h"

namespace brelwin {

ServiceObstacle ObstacleOfService(std::string_view address, std::string_view confirmedHost) {
  if (Trim(address).empty()) return ServiceObstacle::NoAddress;
  const auto host = HostOfAddress(Trim(address));
  if (IsThisMachine(host)) return ServiceObstacle::None;
  const bool isConfirmed = !host.empty() && EqualsIgnoringCase(host, Trim(confirmedHost));
  return isConfirmed ? ServiceObstacle::None : ServiceObstacle::TermsNotConfirmed;
}

std::string ObstacleInWords(ServiceObstacle obstacle, std::string_view address) {
  switch (obstacle) {
    case ServiceObstacle::None: return {};
    case ServiceObstacle::NoAddress:
      return "The JSON service is not asked: [URLTemplates] SotawatchAPI holds no address";
    case ServiceObstacle::TermsNotConfirmed:
      return "The JSON service is not asked: the terms of " + HostOfAddress(Trim(address)) +
             " are not confirmed";
  }
  return {};
}

std::string TermsQuestion(std::string_view address) {
  const auto host = HostOfAddress(Trim(address));
  return "The service at " + host +
         " wants developers to be registered as consumers, approval before software written with AI "
         "connects, and no more than a request a minute. You must have that for your copy of Brelwin. "
         "Nothing is asked of it before you confirm that you have, here or by the line "
         "SotawatchAPITermsConfirmed=" +
         host + " in the section [General] of Brelwin.INI. Do you have it?";
}

}  // namespace brelwin
