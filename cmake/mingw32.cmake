# Windows, 32 bit, with the distribution's mingw-w64 (package g++-mingw-w64-i686-posix).
set(MINGW_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
