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

# cuvexa_server(<target> <name> ROOMS <room>... USES <library>...): the in-process server <name>.dll of the rooms' sources with the
# definition file and the resources that stand beside them. Nothing but the system's own DLLs is needed to load it, and the same
# sources give the same file.
enable_language(RC)
function(cuvexa_server target name)
    cmake_parse_arguments(arg "" "" "ROOMS;USES" ${ARGN})
    cuvexa_sources(sources ${arg_ROOMS})
    list(GET arg_ROOMS 0 room)
    file(GLOB beside CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${room}/*.def ${PROJECT_SOURCE_DIR}/src/${room}/*.rc)
    add_library(${target} MODULE ${sources} ${beside})
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${name}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
    target_compile_definitions(${target} PRIVATE CUVEXA_VERSION="${PROJECT_VERSION}" CUVEXA_VERSION_NUMBERS=${version_numbers},0)
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
