# How tests are compiled, for this machine and for Windows.

# The tests' own code gains nothing by optimization, which would take most of the build.
add_compile_options(-O0)
add_compile_options(${CUVEXA_PRECOMPILED_HEADER_OPTIONS})

# cuvexa_precompile_test_headers(<target>): what nearly every test includes, for this target and for those that reuse it:
# target_precompile_headers(<other> REUSE_FROM <target>).
function(cuvexa_precompile_test_headers target)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

# cuvexa_run_tests_of(<program> [<name> <value>...]): its tests, one by one or all in one run, with these properties.
function(cuvexa_run_tests_of program)
    if(CUVEXA_WHOLE_TEST_PROGRAMS)
        add_test(NAME ${program} COMMAND ${program} --gtest_brief=1)
        if(ARGN)
            set_tests_properties(${program} PROPERTIES ${ARGN})
        endif()
    elseif(ARGN)
        gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60 PROPERTIES ${ARGN})
    else()
        gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60)
    endif()
endfunction()
