# Automation on Windows: what the servers share (cuvexa_com), the suite's services (cuvexa_com_suite) and the servers themselves.
if(NOT WIN32)
    return()
endif()
if(NOT TARGET cuvexa_automation)
    message(STATUS "Cuvexa: no automation servers, because nlohmann_json was not found (package nlohmann-json3-dev)")
    return()
endif()

cuvexa_library(com ROOMS automation/com USES automation)
target_link_libraries(cuvexa_com PUBLIC ole32 oleaut32 uuid advapi32)

# cuvexa_server(<target> <name> ROOMS <room>... USES <library>...): the in-process server <name>.dll of the rooms' sources and the
# definition file beside them. Nothing but the system's own DLLs is needed to load it, and the same sources give the same file.
enable_language(RC)
function(cuvexa_server target name)
    cmake_parse_arguments(arg "" "" "ROOMS;USES" ${ARGN})
    cuvexa_sources(sources ${arg_ROOMS})
    list(GET arg_ROOMS 0 room)
    add_library(${target} MODULE ${sources} ${PROJECT_SOURCE_DIR}/src/${room}/${name}.def)
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${name}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${target} PRIVATE cuvexa_options)
    foreach(used ${arg_USES})
        target_link_libraries(${target} PRIVATE cuvexa_${used})
    endforeach()
    target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++
        -Wl,--gc-sections,--kill-at,--enable-stdcall-fixup,--no-insert-timestamp,--disable-auto-image-base)
    install(TARGETS ${target} LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

if(NOT TARGET cuvexa_sqlite)
    message(STATUS "Cuvexa: no suite for automation, because there is no SQLite engine")
    return()
endif()

cuvexa_library(com_suite ROOMS automation/com/suite USES com suite sqlite)

# CuvexaSuite.dll, the reference suite as automation objects.
cuvexa_server(cuvexa_suite_dll CuvexaSuite ROOMS automation/com/suite_server USES com_suite)
string(REPLACE "." "," version_numbers ${PROJECT_VERSION},0)
configure_file(${PROJECT_SOURCE_DIR}/src/automation/com/suite_server/CuvexaSuite.rc.in
    ${PROJECT_BINARY_DIR}/automation/CuvexaSuite.rc @ONLY)
target_sources(cuvexa_suite_dll PRIVATE ${PROJECT_BINARY_DIR}/automation/CuvexaSuite.rc)
