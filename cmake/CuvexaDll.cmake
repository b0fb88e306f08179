# Cuvexa.dll, the in-process automation server, with its type library and the header for C++ clients.
if(NOT TARGET cuvexa_com_suite OR NOT TARGET cuvexa_win32)
    return()
endif()

# The program that writes both. It uses the system's own writer of type libraries, for either bitness, and always is a 64-bit
# program: that is what Wine runs here.
add_executable(cuvexa_typelib ${PROJECT_SOURCE_DIR}/src/automation/com/tool/cuvexa_typelib.cpp)
target_include_directories(cuvexa_typelib PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(cuvexa_typelib PRIVATE cuvexa_options cuvexa_com)
set(typelib $<TARGET_FILE:cuvexa_typelib>)
set(typelib_made cuvexa_typelib)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set_target_properties(cuvexa_typelib PROPERTIES EXCLUDE_FROM_ALL ON)
    include(ExternalProject)
    ExternalProject_Add(cuvexa_typelib_64
        SOURCE_DIR ${PROJECT_SOURCE_DIR}
        BINARY_DIR ${CMAKE_BINARY_DIR}/typelib
        CMAKE_ARGS -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/mingw64.cmake -DCMAKE_BUILD_TYPE=Release
            -DCUVEXA_TESTS=OFF -DCUVEXA_BENCHMARKS=OFF -DCUVEXA_SQLITE_SOURCE=${CUVEXA_SQLITE_SOURCE}
        BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target cuvexa_typelib
        BUILD_BYPRODUCTS ${CMAKE_BINARY_DIR}/typelib/bin/cuvexa_typelib.exe
        BUILD_ALWAYS ON
        INSTALL_COMMAND "")
    set(typelib ${CMAKE_BINARY_DIR}/typelib/bin/cuvexa_typelib.exe)
    set(typelib_made cuvexa_typelib_64)
endif()

set(under_wine)
if(CMAKE_CROSSCOMPILING)
    set(under_wine ${CMAKE_COMMAND} -E env CUVEXA_WINE_PREFIX=${CMAKE_BINARY_DIR}/wine
        ${PROJECT_SOURCE_DIR}/tests/windows/with_wine)
endif()
math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
set(made ${PROJECT_BINARY_DIR}/automation)
file(MAKE_DIRECTORY ${made})
add_custom_command(OUTPUT ${made}/Cuvexa.tlb ${made}/Cuvexa.h
    COMMAND ${under_wine} ${typelib} ${bits} Cuvexa.tlb
    COMMAND ${under_wine} ${typelib} header Cuvexa.h
    WORKING_DIRECTORY ${made}
    DEPENDS ${typelib_made} $<$<BOOL:${CMAKE_CROSSCOMPILING}>:${PROJECT_SOURCE_DIR}/tests/windows/with_wine>
    COMMENT "Writing the type library" VERBATIM)
add_custom_target(cuvexa_type_library DEPENDS ${made}/Cuvexa.tlb ${made}/Cuvexa.h)

cuvexa_server(cuvexa_dll Cuvexa ROOMS automation/com/server USES com com_suite win32)
add_dependencies(cuvexa_dll cuvexa_type_library)
string(REPLACE "." "," version_numbers ${PROJECT_VERSION},0)
configure_file(${PROJECT_SOURCE_DIR}/src/automation/com/server/Cuvexa.rc.in ${made}/Cuvexa.rc @ONLY)
set_property(SOURCE ${made}/Cuvexa.rc PROPERTY OBJECT_DEPENDS ${made}/Cuvexa.tlb)
set_property(SOURCE ${made}/Cuvexa.rc PROPERTY INCLUDE_DIRECTORIES ${made})
target_sources(cuvexa_dll PRIVATE ${made}/Cuvexa.rc)
install(FILES ${made}/Cuvexa.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cuvexa)
