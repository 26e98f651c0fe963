// The trap that tells of its catch: run-time errors that end in the event log.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "core/event_log.h"
#include "core/runtime_error.h"

namespace brelwin {

// Runs the body; an error in it is logged as procedure + " Error, Number=" + number + " Error=" +
// description.
template <class Body, class Result>
Result LogErrors(Host& host, std::string_view procedure, Result neutral, Body&& body) {
  return TrapErrors(std::forward<Body>(body), std::move(neutral), [&](const RuntimeError& error) {
    LogEvent(host, std::string(procedure) + " Error, Number=" + std::to_string(error.Number) +
                       " Error=" + error.Description);
  });
}

}  // namespace brelwin
