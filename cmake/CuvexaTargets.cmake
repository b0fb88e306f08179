# How a room of src/ becomes a library.

# Warnings for our own code; not passed on to users.
add_library(cuvexa_options INTERFACE)
target_compile_features(cuvexa_options INTERFACE cxx_std_20)
target_compile_options(cuvexa_options INTERFACE -Wall -Wextra -Wpedantic)

# For the operations and for what callers include: no value loses anything unsaid, no name hides another.
add_library(cuvexa_strict INTERFACE)
target_compile_options(cuvexa_strict INTERFACE -Werror=conversion -Werror=shadow)

# cuvexa_count_lines(<target>): with CUVEXA_COVERAGE, which of its lines and branches run is counted.
function(cuvexa_count_lines target)
    if(CUVEXA_COVERAGE)
        target_compile_options(${target} PRIVATE -O0 --coverage -fprofile-update=atomic)
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

# Without it a compiler cache does not know which precompiled header was meant.
set(CUVEXA_PRECOMPILED_HEADER_OPTIONS $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# cuvexa_precompile(<target> <header>...): headers of others that most sources of the target include and that are far longer than
# these are compiled once. A source includes what it uses all the same.
function(cuvexa_precompile target)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    target_compile_options(${target} PRIVATE ${CUVEXA_PRECOMPILED_HEADER_OPTIONS})
endfunction()

# cuvexa_sources(<out> <room>...): the sources of the rooms.
function(cuvexa_sources out)
    set(found)
    foreach(room ${ARGN})
        file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${room}/*.cpp)
        list(APPEND found ${files})
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()

# cuvexa_library(<name> [INTERNAL] ROOMS <room>... [USES <library>...]): the library cuvexa_<name>, of the rooms' sources; exported
# as Cuvexa::<name> unless it is for our own programs.
function(cuvexa_library name)
    cmake_parse_arguments(arg "INTERNAL" "" "ROOMS;USES" ${ARGN})
    cuvexa_sources(sources ${arg_ROOMS})
    if(NOT sources)
        return()
    endif()
    add_library(cuvexa_${name} STATIC ${sources})
    add_library(Cuvexa::${name} ALIAS cuvexa_${name})
    set_target_properties(cuvexa_${name} PROPERTIES EXPORT_NAME ${name} LINKER_LANGUAGE CXX POSITION_INDEPENDENT_CODE ON)
    target_compile_features(cuvexa_${name} PUBLIC cxx_std_20)
    target_link_libraries(cuvexa_${name} PRIVATE $<BUILD_INTERFACE:cuvexa_options>)
    target_include_directories(cuvexa_${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${PROJECT_SOURCE_DIR}/src)
    cuvexa_count_lines(cuvexa_${name})
    foreach(used ${arg_USES})
        target_link_libraries(cuvexa_${name} PUBLIC cuvexa_${used})
    endforeach()
    if(NOT arg_INTERNAL)
        set_property(GLOBAL APPEND PROPERTY CUVEXA_LIBRARIES cuvexa_${name})
    endif()
endfunction()

# cuvexa_read(<out> <file>): what the file holds; when it changes, CMake runs again.
function(cuvexa_read out file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} content)
    set(${out} "${content}" PARENT_SCOPE)
endfunction()

# cuvexa_embed_schema(<target>): schema/*.sql and its upgrades as constants of the target, so that a program needs no file beside it.
function(cuvexa_embed_schema target)
    foreach(file schema sample_company)
        cuvexa_read(${file}_sql ${PROJECT_SOURCE_DIR}/schema/${file}.sql)
    endforeach()
    file(GLOB upgrades CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/schema/upgrades/*.sql)
    list(SORT upgrades COMPARE NATURAL)
    set(schema_upgrades)
    foreach(path ${upgrades})
        cuvexa_read(sql ${path})
        cmake_path(GET path STEM version)
        string(APPEND schema_upgrades "{${version}, R\"~sql~(${sql})~sql~\"},")
    endforeach()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/schema.cpp.in ${PROJECT_BINARY_DIR}/schema.cpp @ONLY)
    target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/schema.cpp)
endfunction()

# cuvexa_embed_contract(<target>): the comments of the public headers and the frame of the description for machines, likewise.
function(cuvexa_embed_contract target)
    set(contract_headers)
    foreach(header tesoreria records)
        cuvexa_read(text ${PROJECT_SOURCE_DIR}/include/cuvexa/${header}.h)
        string(APPEND contract_headers "${text}")
    endforeach()
    cuvexa_read(openrpc_frame ${PROJECT_SOURCE_DIR}/src/automation/openrpc.json)
    string(REGEX REPLACE "\n *" "" openrpc_frame "${openrpc_frame}")  # an answer is one line
    string(CONFIGURE "${openrpc_frame}" openrpc_frame @ONLY)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/contract.cpp.in ${PROJECT_BINARY_DIR}/contract.cpp @ONLY)
    target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/contract.cpp)
endfunction()
