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

add_executable(cuvexa_simulator_tests
    ${CMAKE_CURRENT_LIST_DIR}/simulator_test.cpp ${CMAKE_CURRENT_LIST_DIR}/crowd_test.cpp)
target_link_libraries(cuvexa_simulator_tests PRIVATE cuvexa_simulator GTest::gtest_main)
if(TARGET cuvexa)
    add_dependencies(cuvexa_simulator_tests cuvexa)
endif()
cuvexa_run_tests_of(cuvexa_simulator_tests)

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
math(EXPR calls "${calls} / 2")
add_test(NAME simulation.sessions COMMAND cuvexa_simulate --seed 1 --sessions 4 --calls ${calls})
add_test(NAME simulation.units_of_work COMMAND cuvexa_simulate --seed 1 --sessions 4 --atomic --calls ${calls})
set_tests_properties(simulation.sessions simulation.units_of_work simulation.faults simulation.sixteen_threads
    simulation.fixed_seeds simulation.seeds_of_the_day PROPERTIES TIMEOUT 900)

# The same on a PostgreSQL server of their own.
if(TARGET cuvexa_postgresql)
    set(on_server ${CMAKE_CURRENT_LIST_DIR}/../servers/with_postgresql $<TARGET_FILE:cuvexa_simulate> --seed 1 --sessions 3)
    add_test(NAME postgresql.sessions COMMAND ${on_server} --calls 300)
    add_test(NAME postgresql.units_of_work COMMAND ${on_server} --atomic --calls 300)
    set_tests_properties(postgresql.sessions postgresql.units_of_work PROPERTIES
        SKIP_RETURN_CODE 77 TIMEOUT 900 LABELS servers)
endif()
