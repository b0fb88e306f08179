# The two dialogs as windows, with the system's own controls: Cuvexa::win32.
if(WIN32)
    cuvexa_library(win32 ROOMS desktop/win32 USES core)
    target_link_libraries(cuvexa_win32 PRIVATE comctl32 uxtheme gdi32 user32)
endif()
