# An installed package gives find_package(Cuvexa) with Cuvexa::core, Cuvexa::sqlite, Cuvexa::suite and Cuvexa::automation.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY CUVEXA_LIBRARIES)
install(TARGETS ${libraries} EXPORT CuvexaTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/cuvexa DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# What a program needs of the rooms that it opens the component with.
if(TARGET cuvexa_sqlite)
    install(FILES ${PROJECT_SOURCE_DIR}/src/database/sqlite_connection.h ${PROJECT_SOURCE_DIR}/src/database/trace.h
        ${PROJECT_SOURCE_DIR}/src/database/script.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cuvexa/database)
endif()
if(TARGET cuvexa_odbc)
    install(FILES ${PROJECT_SOURCE_DIR}/src/database/odbc_connection.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cuvexa/database)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/src/suite/reference_suite.h ${PROJECT_SOURCE_DIR}/src/suite/administration.h
    ${PROJECT_SOURCE_DIR}/src/suite/audit.h ${PROJECT_SOURCE_DIR}/src/suite/schema.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cuvexa/suite)
install(EXPORT CuvexaTargets NAMESPACE Cuvexa:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CuvexaConfig.cmake.in ${PROJECT_BINARY_DIR}/CuvexaConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CuvexaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CuvexaConfig.cmake ${PROJECT_BINARY_DIR}/CuvexaConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
