# Every target of ours links this; third-party headers come in as system headers and are spared.
add_library(brelwin_warnings INTERFACE)
target_compile_options(brelwin_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wswitch -Werror)
