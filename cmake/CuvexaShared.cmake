# libcuvexa: all libraries that are exported, but the windows of the dialogs, as one shared library, linked of the same objects. It gives
# what packaging/debian/libcuvexa0.symbols lists and nothing else. Asked for by -DCUVEXA_SHARED=ON.
if(NOT CUVEXA_SHARED OR WIN32)
    return()
endif()

# cuvexa_export_list(<out file> <symbols file>): the list of symbols of the package as the linker wants it.
function(cuvexa_export_list out symbols)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${symbols})
    file(STRINGS ${symbols} lines REGEX "c[+][+]" ENCODING UTF-8)
    set(names)
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^.*\"(.*)@.*$" "\\1" name "${line}")
        # The linker has a shorter name for these.
        string(REGEX REPLACE "std::basic_([io]+)stream<char, std::char_traits<char> >" "std::\\1stream" name "${name}")
        string(APPEND names "        \"${name}\";\n")
    endforeach()
    file(CONFIGURE OUTPUT ${out} CONTENT "CUVEXA_@PROJECT_VERSION_MAJOR@ {\nglobal:\n    extern \"C++\" {\n@names@    };\nlocal:\n    *;\n};\n"
        @ONLY)
endfunction()

set(exported ${PROJECT_BINARY_DIR}/libcuvexa.map)
cuvexa_export_list(${exported} ${PROJECT_SOURCE_DIR}/packaging/debian/libcuvexa${PROJECT_VERSION_MAJOR}.symbols)
get_property(parts GLOBAL PROPERTY CUVEXA_LIBRARIES)
list(REMOVE_ITEM parts cuvexa_qt)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/libcuvexa.parts CONTENT "@parts@\n")

set(objects)
set(used)
foreach(part ${parts})
    list(APPEND objects $<TARGET_OBJECTS:${part}>)
    get_target_property(libraries ${part} LINK_LIBRARIES)
    list(FILTER libraries EXCLUDE REGEX "cuvexa_")
    list(APPEND used ${libraries})
endforeach()
list(REMOVE_DUPLICATES used)

add_library(cuvexa_shared SHARED ${objects})
add_library(Cuvexa::shared ALIAS cuvexa_shared)
add_dependencies(cuvexa_shared ${parts})  # installed with it
set_target_properties(cuvexa_shared PROPERTIES EXPORT_NAME shared OUTPUT_NAME cuvexa LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${exported})
target_compile_features(cuvexa_shared PUBLIC cxx_std_20)
target_include_directories(cuvexa_shared INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_options(cuvexa_shared PRIVATE -Wl,--version-script=${exported} -Wl,--no-undefined -Wl,--as-needed -Wl,-z,now)
target_link_libraries(cuvexa_shared PRIVATE ${used})
install(TARGETS cuvexa_shared EXPORT CuvexaTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The file finds its folder by itself, wherever the package is installed.
file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/packaging/cuvexa.pc.in ${PROJECT_BINARY_DIR}/cuvexa.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cuvexa.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
