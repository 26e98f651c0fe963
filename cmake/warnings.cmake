# Every target of ours links this; third-party headers come in as system headers and are spared.
add_library(brelwin_warnings INTERFACE)
target_compile_options(brelwin_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wswitch -Werror)

# GCC 12 sees overlapping copies in "literal" + std::string when it optimises (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(brelwin_warnings INTERFACE -Wno-restrict)
endif()
