// How the system writes numbers. The program's own files never depend on it; a few rules of old ask for it.
#pragma once

namespace brelwin {

struct NumberFormat {
  char DecimalSign = '.';  // '.' or ','
};

}  // namespace brelwin
