# The component for programs on other machines, where an HTTP server and TLS are found.
include_guard()

if(NOT UNIX OR NOT TARGET cuvexa_company OR NOT TARGET cuvexa_automation)
    return()
endif()
find_package(OpenSSL QUIET)
find_package(Threads QUIET)
find_path(CUVEXA_HTTPLIB_INCLUDE httplib.h)
find_library(CUVEXA_HTTPLIB_LIBRARY cpp-httplib)
if(NOT OPENSSL_FOUND OR NOT Threads_FOUND OR NOT CUVEXA_HTTPLIB_INCLUDE OR NOT CUVEXA_HTTPLIB_LIBRARY)
    message(STATUS "Cuvexa: no service, because cpp-httplib or OpenSSL was not found (packages libcpp-httplib-dev, libssl-dev)")
    return()
endif()

cuvexa_library(service INTERNAL ROOMS service USES company automation paper)
cuvexa_precompile(cuvexa_service <httplib.h> <nlohmann/json.hpp>)
target_include_directories(cuvexa_service SYSTEM PUBLIC $<BUILD_INTERFACE:${CUVEXA_HTTPLIB_INCLUDE}>)
# As the library itself was compiled: its classes have other members without these.
target_compile_definitions(cuvexa_service PUBLIC
    CPPHTTPLIB_OPENSSL_SUPPORT CPPHTTPLIB_ZLIB_SUPPORT CPPHTTPLIB_BROTLI_SUPPORT)
target_link_libraries(cuvexa_service PUBLIC ${CUVEXA_HTTPLIB_LIBRARY} OpenSSL::SSL OpenSSL::Crypto Threads::Threads)

include(CuvexaConsole)
cuvexa_embed_console(cuvexa_service)
