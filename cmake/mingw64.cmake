# Windows, 64 bit, with the distribution's mingw-w64 (package g++-mingw-w64-x86-64-posix).
set(MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
