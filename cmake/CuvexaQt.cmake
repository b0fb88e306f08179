# The two dialogs as windows, with Qt 6 Widgets: Cuvexa::qt.
find_package(Qt6 6.2 QUIET COMPONENTS Widgets)
if(Qt6_FOUND)
    cuvexa_library(qt ROOMS desktop/qt USES core)
    target_link_libraries(cuvexa_qt PRIVATE Qt6::Widgets)
else()
    message(STATUS "Cuvexa: no windows for the dialogs, because Qt 6 Widgets was not found (package qt6-base-dev)")
endif()
