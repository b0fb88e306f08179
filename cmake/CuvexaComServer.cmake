# The component as automation objects (cuvexa_com_server), and Cuvexa.dll, the in-process server of them, with its type library and
# the header for C++ clients.
if(NOT TARGET cuvexa_com_suite OR NOT TARGET cuvexa_win32)
    return()
endif()
if(NOT TARGET cuvexa_automation)
    message(STATUS "Cuvexa: no Cuvexa.dll, because nlohmann_json was not found (package nlohmann-json3-dev)")
    return()
endif()

cuvexa_library(com_server ROOMS com_server USES com automation)

# The program that writes both. It uses the system's own writer of type libraries, for either bitness, and always is a 64-bit
# program: that is what Wine runs here.
add_executable(cuvexa_typelib ${PROJECT_SOURCE_DIR}/src/com_server/tool/cuvexa_typelib.cpp)
target_include_directories(cuvexa_typelib PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(cuvexa_typelib PRIVATE cuvexa_options cuvexa_com_server)
set(typelib $<TARGET_FILE:cuvexa_typelib>)
set(typelib_made cuvexa_typelib)
set(wine_prefix ${CMAKE_BINARY_DIR}/wine)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # The one of the 64-bit build, which most likely stands beside this one.
    set_target_properties(cuvexa_typelib PROPERTIES EXCLUDE_FROM_ALL ON)
    get_filename_component(beside ${CMAKE_BINARY_DIR}/../mingw64 ABSOLUTE)
    set(CUVEXA_BUILD_64 ${beside} CACHE PATH "The 64-bit build; made where there is none")
    if(NOT EXISTS ${CUVEXA_BUILD_64}/CMakeCache.txt)
        execute_process(COMMAND ${CMAKE_COMMAND} -G ${CMAKE_GENERATOR} -S ${PROJECT_SOURCE_DIR} -B ${CUVEXA_BUILD_64}
            -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/mingw64.cmake -DCMAKE_BUILD_TYPE=Release
            -DCUVEXA_BENCHMARKS=OFF -DCUVEXA_SQLITE_SOURCE=${CUVEXA_SQLITE_SOURCE} COMMAND_ERROR_IS_FATAL ANY)
    endif()
    set(typelib ${CUVEXA_BUILD_64}/bin/cuvexa_typelib.exe)
    set(typelib_made cuvexa_typelib_64)
    set(wine_prefix ${CUVEXA_BUILD_64}/wine)
    add_custom_target(cuvexa_typelib_64
        COMMAND ${CMAKE_COMMAND} --build ${CUVEXA_BUILD_64} --target cuvexa_typelib
        BYPRODUCTS ${typelib} USES_TERMINAL VERBATIM)
endif()

set(under_wine)
if(CMAKE_CROSSCOMPILING)
    set(under_wine ${CMAKE_COMMAND} -E env CUVEXA_WINE_PREFIX=${wine_prefix} ${PROJECT_SOURCE_DIR}/tests/windows/with_wine)
endif()
math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
set(made ${PROJECT_BINARY_DIR}/automation)
file(MAKE_DIRECTORY ${made})
add_custom_command(OUTPUT ${made}/Cuvexa.tlb ${made}/Cuvexa.h
    COMMAND ${under_wine} ${typelib} ${bits} Cuvexa.tlb
    COMMAND ${under_wine} ${typelib} header Cuvexa.h
    WORKING_DIRECTORY ${made}
    DEPENDS ${typelib_made} ${typelib} $<$<BOOL:${CMAKE_CROSSCOMPILING}>:${PROJECT_SOURCE_DIR}/tests/windows/with_wine>
    COMMENT "Writing the type library" VERBATIM)
add_custom_target(cuvexa_type_library DEPENDS ${made}/Cuvexa.tlb ${made}/Cuvexa.h)

cuvexa_server(cuvexa_dll Cuvexa ROOM com_server/dll USES com_server com_suite win32)
add_dependencies(cuvexa_dll cuvexa_type_library)
set_source_files_properties(${made}/Cuvexa.rc PROPERTIES OBJECT_DEPENDS ${made}/Cuvexa.tlb INCLUDE_DIRECTORIES ${made})
install(FILES ${made}/Cuvexa.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cuvexa)
