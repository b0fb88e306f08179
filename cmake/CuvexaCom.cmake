# The kit for automation objects of Windows (cuvexa_com), and how a server is made of it.
if(NOT WIN32)
    return()
endif()

cuvexa_library(com ROOMS com)
target_link_libraries(cuvexa_com PUBLIC ole32 oleaut32 uuid advapi32)

# cuvexa_server(<target> <name> ROOM <room> USES <library>...): the in-process server <name>.dll of the room's sources, with the
# definition file and the resources beside them. Nothing but the system's own DLLs is needed to load it, and the same sources give
# the same file.
enable_language(RC)
function(cuvexa_server target name)
    cmake_parse_arguments(arg "" "ROOM" "USES" ${ARGN})
    set(folder ${PROJECT_SOURCE_DIR}/src/${arg_ROOM})
    string(REPLACE "." "," version_numbers ${PROJECT_VERSION},0)
    configure_file(${folder}/${name}.rc.in ${PROJECT_BINARY_DIR}/automation/${name}.rc @ONLY)
    cuvexa_sources(sources ${arg_ROOM})
    add_library(${target} MODULE ${sources} ${folder}/${name}.def ${PROJECT_BINARY_DIR}/automation/${name}.rc)
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
