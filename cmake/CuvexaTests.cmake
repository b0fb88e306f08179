# How tests are compiled, for this machine and for Windows.

# The tests' own code gains nothing by optimization, which would take most of the build.
add_compile_options(-O0)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)  # else a compiler cache does not know which precompiled header was meant
endif()

# cuvexa_precompile_headers(<target>): the headers that nearly every test includes and that are far longer than itself are compiled
# once, for this target and for those that reuse them: target_precompile_headers(<other> REUSE_FROM <target>).
# A test includes what it uses all the same.
function(cuvexa_precompile_headers target)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()
