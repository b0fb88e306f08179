# The suite through automation, with a prefix of its own: the suite that these tests register must not meet other tests.
if(NOT TARGET cuvexa_suite_dll)
    return()
endif()
cuvexa_windows_test(suite cuvexa_com_suite cuvexa_sqlite cuvexa_suite)
target_link_libraries(cuvexa_windows_suite_tests PRIVATE version)
target_compile_definitions(cuvexa_windows_suite_tests PRIVATE CUVEXA_VERSION="${PROJECT_VERSION}")
add_dependencies(cuvexa_windows_suite_tests cuvexa_suite_dll)
if(TARGET cuvexa)
    add_dependencies(cuvexa_windows_suite_tests cuvexa)
    target_compile_definitions(cuvexa_windows_suite_tests PRIVATE CUVEXA_WITH_PROGRAM)
endif()
set_tests_properties(windows.suite PROPERTIES ENVIRONMENT CUVEXA_WINE_PREFIX=${CMAKE_BINARY_DIR}/wine-suite)

# cuvexa_windows_library(<target>): a test `windows.<target>` that the library offers the four entry points and no other,
# and needs no libraries but the system's.
function(cuvexa_windows_library target)
    add_test(NAME windows.${target}
        COMMAND ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:${target}> -DOBJDUMP=${CMAKE_OBJDUMP}
            -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/library.cmake)
    set_tests_properties(windows.${target} PROPERTIES LABELS windows)
endfunction()
cuvexa_windows_library(cuvexa_suite_dll)
