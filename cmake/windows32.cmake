# Cross-builds for 32-bit Windows. Debian's 64-bit Wine does not run what this builds: docs/testing.md tells what does.
set(prefix i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
# x87 arithmetic keeps more digits than a double has; Windows aligns the stack less than SSE needs.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
