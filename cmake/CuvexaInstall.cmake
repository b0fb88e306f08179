# An installed package gives find_package(Cuvexa) with Cuvexa::core, Cuvexa::company, Cuvexa::suite, Cuvexa::automation and the engines.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY CUVEXA_LIBRARIES)
install(TARGETS ${libraries} EXPORT CuvexaTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/cuvexa DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT CuvexaTargets NAMESPACE Cuvexa:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CuvexaConfig.cmake.in ${PROJECT_BINARY_DIR}/CuvexaConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CuvexaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/CuvexaConfig.cmake ${PROJECT_BINARY_DIR}/CuvexaConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Cuvexa)
