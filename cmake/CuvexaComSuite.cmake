# A suite's services as automation objects, both sides (cuvexa_com_suite), and CuvexaSuite.dll, which publishes the reference suite.
if(NOT TARGET cuvexa_com)
    return()
endif()
if(NOT TARGET cuvexa_sqlite)
    message(STATUS "Cuvexa: no suite for automation, because there is no SQLite engine")
    return()
endif()

cuvexa_library(com_suite ROOMS com_suite USES com company)
cuvexa_server(cuvexa_suite_dll CuvexaSuite ROOM com_suite/dll USES com_suite)
