// What stands between the program and the JSON service: an address, and the user's word that its keepers'
// terms are met for his copy.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

enum class ServiceObstacle : std::uint8_t { None, NoAddress, TermsNotConfirmed };

// What keeps the service at this address from being asked. `confirmedHost` is the host for which the terms
// have been confirmed; a service on this machine needs no confirmation.
ServiceObstacle ObstacleOfService(std::string_view address, std::string_view confirmedHost);

// The obstacle in a few words for the status line; empty without one.
std::string ObstacleInWords(ServiceObstacle obstacle, std::string_view address);

// The question that is put before the host of the address is asked for the first time.
std::string TermsQuestion(std::string_view address);

}  // namespace brelwin
