# The component beside its model (tests/model): the program cuvexa_simulate, its own tests, and two short runs of it.
if(NOT TARGET cuvexa_automation OR NOT TARGET cuvexa_sqlite OR NOT CLI11_FOUND)
    message(STATUS "Cuvexa: no simulator, because SQLite3, nlohmann_json or CLI11 was not found")
    return()
endif()

file(GLOB model_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/../model/*.cpp)
file(GLOB simulator_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.cpp)
list(APPEND simulator_files ${CMAKE_CURRENT_LIST_DIR}/../interruptions/advice.cpp)
list(FILTER simulator_files EXCLUDE REGEX "/(main|[a-z_]+_test)[.]cpp$")
add_library(cuvexa_simulator STATIC ${model_files} ${simulator_files})
target_link_libraries(cuvexa_simulator PUBLIC cuvexa_test_support cuvexa_automation)
# Unlike the other tests it runs for as long as it is let, and is the better for being fast.
target_compile_options(cuvexa_simulator PRIVATE -O1)

add_executable(cuvexa_simulate ${CMAKE_CURRENT_LIST_DIR}/main.cpp)
target_link_libraries(cuvexa_simulate PRIVATE cuvexa_simulator CLI11::CLI11)

add_executable(cuvexa_simulator_tests ${CMAKE_CURRENT_LIST_DIR}/simulator_test.cpp)
target_link_libraries(cuvexa_simulator_tests PRIVATE cuvexa_simulator GTest::gtest_main)
if(TARGET cuvexa)
    add_dependencies(cuvexa_simulator_tests cuvexa)
endif()
gtest_discover_tests(cuvexa_simulator_tests DISCOVERY_TIMEOUT 60)

# Some 15 seconds each where the component is optimized; elsewhere a tenth of the calls.
set(calls 3000)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(calls 30000)
endif()
add_test(NAME simulation.fixed_seeds COMMAND cuvexa_simulate --seed 1 --calls ${calls} --out ${CMAKE_BINARY_DIR}/simulation)
add_test(NAME simulation.seeds_of_the_day COMMAND cuvexa_simulate --day --calls ${calls} --out ${CMAKE_BINARY_DIR}/simulation)
math(EXPR calls "${calls} / 5")
add_test(NAME simulation.sixteen_threads
    COMMAND cuvexa_simulate --seed 1000 --threads 16 --calls ${calls} --out ${CMAKE_BINARY_DIR}/simulation)
math(EXPR calls "${calls} / 2")
add_test(NAME simulation.faults
    COMMAND cuvexa_simulate --seed 1 --faults 15 --calls ${calls} --out ${CMAKE_BINARY_DIR}/simulation)
set_tests_properties(simulation.faults simulation.sixteen_threads simulation.fixed_seeds simulation.seeds_of_the_day PROPERTIES TIMEOUT 900)
