# An installed package gives find_package(Cuvexa) with Cuvexa::core, Cuvexa::company, Cuvexa::suite, Cuvexa::automation and the engines,
# and Cuvexa::shared where the shared library was built. Beside the program lie its pages of the manual and its completions, which it writes itself.
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

if(TARGET cuvexa AND UNIX AND NOT CMAKE_CROSSCOMPILING)
    cuvexa_day(day)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/man/cuvexa.3.in ${PROJECT_BINARY_DIR}/cuvexa.3 @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/cuvexa.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3)
    install(CODE "
        set(share \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/share)
        set(completions bash-completion/completions/cuvexa zsh/vendor-completions/_cuvexa fish/vendor_completions.d/cuvexa.fish)
        file(MAKE_DIRECTORY \${share}/man/man1)
        execute_process(COMMAND $<TARGET_FILE:cuvexa> help --man \${share}/man/man1 COMMAND_ERROR_IS_FATAL ANY)
        foreach(file IN LISTS completions)
            cmake_path(GET file PARENT_PATH folder)
            string(REGEX MATCH \"^[a-z]+\" shell \${file})
            file(MAKE_DIRECTORY \${share}/\${folder})
            execute_process(COMMAND $<TARGET_FILE:cuvexa> completion \${shell} OUTPUT_FILE \${share}/\${file} COMMAND_ERROR_IS_FATAL ANY)
        endforeach()")
endif()
