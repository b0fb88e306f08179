# What both bitnesses share. The posix compilers, because the win32 ones lack std::mutex.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_TRIPLET}-windres)

# Libraries and packages of this machine are not for Windows; programs are to be run here.
set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Nothing but the system's own DLLs is needed to run what comes out.
set(static_runtime "-static -static-libgcc -static-libstdc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${static_runtime}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${static_runtime}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${static_runtime}")
