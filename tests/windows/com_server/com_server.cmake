# The automation server as its clients see it.
if(NOT TARGET cuvexa_dll)
    message(STATUS "Cuvexa: no test windows.com_server, because there is no Cuvexa.dll")
    return()
endif()
set(made ${PROJECT_BINARY_DIR}/automation)

# The tests that need no registration. The program has the type library inside as the server has it, so that objects of the
# tests' own classes can give records.
cuvexa_windows_test(com_server cuvexa_com_server cuvexa_suite cuvexa_sqlite)
add_dependencies(cuvexa_windows_com_server_tests cuvexa_dll)
target_include_directories(cuvexa_windows_com_server_tests PRIVATE ${made})
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/types.rc "1 TYPELIB \"Cuvexa.tlb\"\n")
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/types.rc PROPERTIES
    OBJECT_DEPENDS ${made}/Cuvexa.tlb INCLUDE_DIRECTORIES ${made})
target_sources(cuvexa_windows_com_server_tests PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/types.rc)

# The clients that the documentation shows, built as an integrator builds them: with the compiler and the system's libraries,
# and the one with the header that the build made.
foreach(client virtual_table_client late_bound_client)
    add_executable(cuvexa_${client} ${PROJECT_SOURCE_DIR}/examples/automation/${client}.cpp)
    target_link_libraries(cuvexa_${client} PRIVATE cuvexa_options ole32 oleaut32 uuid)
endforeach()
target_include_directories(cuvexa_virtual_table_client PRIVATE ${made})
add_dependencies(cuvexa_virtual_table_client cuvexa_type_library)

# The same clients, and scripts, in a prefix of their own where the library is registered.
add_executable(cuvexa_windows_sample_company ${CMAKE_CURRENT_LIST_DIR}/tool/sample_company.cpp)
target_include_directories(cuvexa_windows_sample_company PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(cuvexa_windows_sample_company PRIVATE cuvexa_options cuvexa_com cuvexa_suite cuvexa_sqlite)
target_link_options(cuvexa_windows_sample_company PRIVATE -municode)
if(CMAKE_CROSSCOMPILING)
    add_test(NAME windows.registered COMMAND ${CMAKE_CURRENT_LIST_DIR}/registered_test ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    set_tests_properties(windows.registered PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT ${CUVEXA_WINDOWS_SECONDS} LABELS windows)
endif()

# The files themselves.
foreach(server cuvexa_dll cuvexa_suite_dll)
    if(CMAKE_CROSSCOMPILING AND TARGET ${server})
        get_target_property(name ${server} OUTPUT_NAME)
        add_test(NAME windows.imports.${name} COMMAND ${CMAKE_CURRENT_LIST_DIR}/imports_test ${CMAKE_OBJDUMP} $<TARGET_FILE:${server}>)
        add_test(NAME windows.relink.${name}
            COMMAND ${CMAKE_CURRENT_LIST_DIR}/relink_test ${CMAKE_BINARY_DIR} bin/${name}.dll)
        set_tests_properties(windows.imports.${name} windows.relink.${name} PROPERTIES
            SKIP_RETURN_CODE 77 TIMEOUT ${CUVEXA_WINDOWS_SECONDS} LABELS windows)
    endif()
endforeach()
