# The windows of the two dialogs, and the same toolkit inside a library of its own.
cuvexa_windows_test(dialogs cuvexa_windows_test_server cuvexa_win32 cuvexa_sqlite cuvexa_suite)
if(TARGET cuvexa_windows_dialogs_tests)
    add_library(cuvexa_windows_dialogs_library MODULE ${CMAKE_CURRENT_LIST_DIR}/../dialogs_library/toolkit.cpp)
    set_target_properties(cuvexa_windows_dialogs_library PROPERTIES PREFIX ""
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    target_link_libraries(cuvexa_windows_dialogs_library PRIVATE cuvexa_options cuvexa_win32)
    add_dependencies(cuvexa_windows_dialogs_tests cuvexa_windows_dialogs_library)
endif()
