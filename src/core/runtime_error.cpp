#include "core/runtime_error.h"

#include <new>
#include <stdexcept>

namespace brelwin {

RuntimeError DescribeCurrentError() {
  try {
    throw;
  } catch (const std::overflow_error& error) {
    return {6, error.what()};
  } catch (const std::bad_alloc&) {
    return {7, "Out of memory"};
  } catch (const std::out_of_range& error) {
    return {9, error.what()};
  } catch (const std::exception& error) {
    return {5, error.what()};
  } catch (...) {
    return {5, "unknown error"};
  }
}

}  // namespace brelwin
