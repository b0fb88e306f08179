# How tests are compiled, for this machine and for Windows.

# The tests' own code gains nothing by optimization, which would take most of the build.
add_compile_options(-O0)
add_compile_options(${CUVEXA_PRECOMPILED_HEADER_OPTIONS})

# cuvexa_precompile_test_headers(<target>): what nearly every test includes, for this target and for those that reuse it:
# target_precompile_headers(<other> REUSE_FROM <target>).
function(cuvexa_precompile_test_headers target)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()
