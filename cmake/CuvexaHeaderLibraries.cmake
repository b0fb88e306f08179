# Libraries of this machine that are headers alone serve every system; only they are made visible to the cross-compiler.
function(cuvexa_header_library target package folder)
    if(TARGET ${target} OR NOT EXISTS /usr/include/${folder})
        return()
    endif()
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
    file(CREATE_LINK /usr/include/${folder} ${CMAKE_BINARY_DIR}/headers/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers)
    set(${package}_FOUND TRUE PARENT_SCOPE)
endfunction()

cuvexa_header_library(nlohmann_json::nlohmann_json nlohmann_json nlohmann)
cuvexa_header_library(CLI11::CLI11 CLI11 CLI)
