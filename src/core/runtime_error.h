// Every procedure traps its own run-time errors: exceptions do not cross its edge.
#pragma once

#include <string>
#include <utility>

namespace brelwin {

// A run-time error as log lines show it. The numbers are those that operators know from old: 6 overflow, 7
// out of memory, 9 subscript out of range, 5 anything else.
struct RuntimeError {
  int Number = 5;
  std::string Description;
};

// The error being handled; to be called inside a catch block only.
RuntimeError DescribeCurrentError();

// Runs the body; an error in it is handed to `onError`, which must not throw, and the result is `neutral`.
template <class Body, class Result, class OnError>
Result TrapErrors(Body&& body, Result neutral, OnError&& onError) {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    std::forward<OnError>(onError)(DescribeCurrentError());
    return neutral;
  }
}

// The same for procedures that stay silent.
template <class Body>
void TrapErrorsSilently(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {  // silent by design: what was called has logged its own failure
  }
}

}  // namespace brelwin
