# What programs in Python and TypeScript use, in clients/ of the build: the sources of clients/ as they stand, and what the program
# tells of its members and records.
include_guard()

if(NOT TARGET cuvexa OR CMAKE_CROSSCOMPILING)
    return()
endif()
find_package(Python3 3.9 QUIET COMPONENTS Interpreter)
if(NOT Python3_FOUND)
    message(STATUS "Cuvexa: no clients, because Python was not found (package python3)")
    return()
endif()

set(clients ${CMAKE_BINARY_DIR}/clients)
file(GLOB files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/clients
    ${PROJECT_SOURCE_DIR}/clients/python/cuvexa/*.py ${PROJECT_SOURCE_DIR}/clients/typescript/tsconfig.json
    ${PROJECT_SOURCE_DIR}/clients/typescript/src/*.ts)
foreach(file ${files})
    configure_file(${PROJECT_SOURCE_DIR}/clients/${file} ${clients}/${file} COPYONLY)
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/clients/typescript/package.json.in ${clients}/typescript/package.json @ONLY)

set(written ${clients}/python/cuvexa/treasury.py ${clients}/typescript/src/treasury.ts)
set(write ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/clients/write.py $<TARGET_FILE:cuvexa>)
add_custom_command(OUTPUT ${written}
    COMMAND ${write} python ${clients}/python/cuvexa/treasury.py
    COMMAND ${write} typescript ${clients}/typescript/src/treasury.ts
    DEPENDS cuvexa ${PROJECT_SOURCE_DIR}/clients/write.py
    COMMENT "Writing the clients"
    VERBATIM)
add_custom_target(cuvexa_clients ALL DEPENDS ${written})
