# Compilations are looked up in a cache, where ccache is installed. What the tree is called is left out of the comparison, so
# that one checkout finds what another compiled; the rest is what precompiled headers ask for.
find_program(CCACHE ccache)
find_program(ENV_PROGRAM env)
if(CCACHE AND ENV_PROGRAM)
    set(compiler_launcher ${ENV_PROGRAM} CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${compiler_launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${compiler_launcher})
endif()
