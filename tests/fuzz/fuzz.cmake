# One program per <target>_fuzzer.cpp: cuvexa_fuzz_<target>. A build of its own (preset fuzz), for everything is instrumented.
file(GLOB fuzzers CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*_fuzzer.cpp)
add_custom_target(cuvexa_fuzzers)
foreach(fuzzer ${fuzzers})
    cmake_path(GET fuzzer STEM name)
    string(REGEX REPLACE "_fuzzer$" "" name ${name})
    add_executable(cuvexa_fuzz_${name} ${fuzzer} ${CMAKE_CURRENT_LIST_DIR}/oracle.cpp)
    target_include_directories(cuvexa_fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
    target_compile_options(cuvexa_fuzz_${name} PRIVATE -O1)
    target_link_libraries(cuvexa_fuzz_${name} PRIVATE cuvexa_options cuvexa_database cuvexa_automation)
    target_link_options(cuvexa_fuzz_${name} PRIVATE -fsanitize=fuzzer)
    add_dependencies(cuvexa_fuzzers cuvexa_fuzz_${name})
endforeach()
# The statements of the product, for the fuzzer of the values that fill their holes.
target_sources(cuvexa_fuzz_hole PRIVATE ${PROJECT_SOURCE_DIR}/tests/statements/source_statements.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/places.cpp)
