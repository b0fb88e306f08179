# The console: the files of web/, and uPlot, which draws its charts, as constants of the program. uPlot is fetched once into the build folder
# and checked; CUVEXA_UPLOT_SOURCE names a folder that has it already.
set(CUVEXA_UPLOT_SOURCE "" CACHE PATH "Folder with uPlot.esm.js, uPlot.min.css and LICENSE; empty: fetched from the npm registry")
include(${CMAKE_CURRENT_LIST_DIR}/CuvexaFetchPackage.cmake)
set(uplot_package uplot@1.6.32)
set(uplot_package_hash 4b8a8191e425658e3ea8c8c1314b0fc679c861ee3a1af2b20c7b16ba50b5133d)
set(uplot_hashes
    uPlot.esm.js 5dd9b3281aa64b461b42d9945f6adb2649d346502b12281a9ae0d46599a80eba
    uPlot.min.css df630c6a8d6f8eeaff264b50f73ce5b114f646ffd9a0bb74f049b0a00135fa04
    LICENSE 8f989229699b4fe2f1a0432d0e9edc338a8a911e250e2d1b01ecd770a5f5b1bd)

# cuvexa_fetch_uplot(<folder>): what the console needs of uPlot. What is in the folder already is used again.
function(cuvexa_fetch_uplot folder)
    cuvexa_has_files(${folder} there ${uplot_hashes})
    if(there)
        return()
    endif()
    cuvexa_fetch_package(${folder} "uPlot, which draws the charts of the console," ${uplot_package} ${uplot_package_hash}
        "Name a folder that has uPlot.esm.js, uPlot.min.css and LICENSE of ${uplot_package} with -DCUVEXA_UPLOT_SOURCE=…")
    file(RENAME ${folder}/package/dist/uPlot.esm.js ${folder}/uPlot.esm.js)
    file(RENAME ${folder}/package/dist/uPlot.min.css ${folder}/uPlot.min.css)
    file(RENAME ${folder}/package/LICENSE ${folder}/LICENSE)
    file(REMOVE_RECURSE ${folder}/package)
endfunction()

# cuvexa_embed_console(<target>): all of it as constants of the target, so that a program needs no file beside it.
function(cuvexa_embed_console target)
    set(uplot ${CUVEXA_UPLOT_SOURCE})
    if(NOT uplot)
        set(uplot ${CMAKE_BINARY_DIR}/uplot)
        cuvexa_fetch_uplot(${uplot})
    endif()
    cuvexa_has_files(${uplot} there ${uplot_hashes})
    if(NOT there)
        message(FATAL_ERROR "Cuvexa: the files of uPlot are not those of ${uplot_package}, in ${uplot}")
    endif()
    file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/web/*)
    list(SORT files)
    list(APPEND files ${uplot}/uPlot.esm.js ${uplot}/uPlot.min.css)
    set(console_files)
    foreach(path ${files})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
        file(READ ${path} content)
        cmake_path(GET path FILENAME name)
        string(APPEND console_files "\n    {\"${name}\", R\"~web~(${content})~web~\"},")
    endforeach()
    file(READ ${uplot}/LICENSE content)
    string(APPEND console_files "\n    {\"uPlot.LICENSE.txt\", R\"~web~(${content})~web~\"},")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/console.cpp.in ${PROJECT_BINARY_DIR}/console.cpp @ONLY)
    target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/console.cpp)
endfunction()
