# What `./run coverage` makes of the compiler's counts.
find_program(CUVEXA_GCOV gcov)
if(CUVEXA_GCOV AND Python3_FOUND AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_test(NAME coverage.conditions COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/conditions_test.py
        ${CMAKE_CXX_COMPILER})
endif()
