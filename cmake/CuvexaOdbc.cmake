# Database servers by way of ODBC: Cuvexa::odbc.
find_package(ODBC QUIET)
if(ODBC_FOUND)
    cuvexa_library(odbc ROOMS database ONLY "/odbc_[a-z]+[.]cpp$" USES database)
    target_link_libraries(cuvexa_odbc PUBLIC ODBC::ODBC)
else()
    message(STATUS "Cuvexa: no database servers, because ODBC was not found (package unixodbc-dev)")
endif()
