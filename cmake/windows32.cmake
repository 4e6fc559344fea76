# Cross-builds for 32-bit Windows. Debian's Wine runs 64-bit programs only, so what this builds is not tried out here.
set(prefix i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
# The machine's own floating point keeps more digits than a double has, and Windows aligns the stack less than SSE needs.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
