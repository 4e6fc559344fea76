# Cross-builds for 64-bit Windows with MinGW-w64; windows32.cmake sets another prefix. On Windows itself, CMake
# takes the compiler of the shell it runs in (Visual Studio's developer prompt or MSYS2).
if(NOT CMAKE_HOST_WIN32)
  if(NOT prefix)
    set(prefix x86_64-w64-mingw32)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh)
  endif()
  string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${prefix})
  set(CMAKE_SYSTEM_NAME Windows)
  # The plain names lack std::thread on Debian; the -posix ones have it.
  set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
  set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)
  set(CMAKE_RC_COMPILER ${prefix}-windres)
  set(CMAKE_FIND_ROOT_PATH /usr/${prefix})
  set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
  set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
  set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
endif()
