# The automation server as its clients see it.
if(NOT TARGET cuvexa_dll)
    message(STATUS "Cuvexa: no test windows.automation, because there is no Cuvexa.dll")
    return()
endif()
set(made ${PROJECT_BINARY_DIR}/automation)

# The tests that need no registration. The program has the type library inside as the server has it, so that objects of the
# tests' own classes can give records.
cuvexa_windows_test(automation cuvexa_com cuvexa_suite cuvexa_sqlite)
add_dependencies(cuvexa_windows_automation_tests cuvexa_dll)
target_include_directories(cuvexa_windows_automation_tests PRIVATE ${made})
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/types.rc "1 TYPELIB \"Cuvexa.tlb\"\n")
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/types.rc PROPERTIES
    OBJECT_DEPENDS ${made}/Cuvexa.tlb INCLUDE_DIRECTORIES ${made})
target_sources(cuvexa_windows_automation_tests PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/types.rc)
