# SQLite for Windows: SQLite::SQLite3, compiled from its amalgamation with the options that Debian's has and that matter
# here. The source is fetched once into the build folder and checked; CUVEXA_SQLITE_SOURCE names a folder that has it already.
set(CUVEXA_SQLITE_SOURCE "" CACHE PATH "Folder with sqlite3.c and sqlite3.h; empty: fetched from the npm registry")

set(sqlite_folder ${CUVEXA_SQLITE_SOURCE})
if(NOT sqlite_folder)
    set(sqlite_folder ${CMAKE_BINARY_DIR}/sqlite)
    include(${CMAKE_CURRENT_LIST_DIR}/CuvexaFetchSqlite.cmake)
    cuvexa_fetch_sqlite(${sqlite_folder})
elseif(NOT EXISTS ${sqlite_folder}/sqlite3.c OR NOT EXISTS ${sqlite_folder}/sqlite3.h)
    message(FATAL_ERROR "Cuvexa: CUVEXA_SQLITE_SOURCE has no sqlite3.c and sqlite3.h: ${sqlite_folder}")
endif()

enable_language(C)
add_library(cuvexa_sqlite3 STATIC ${sqlite_folder}/sqlite3.c)
target_include_directories(cuvexa_sqlite3 SYSTEM INTERFACE $<BUILD_INTERFACE:${sqlite_folder}>)
target_compile_definitions(cuvexa_sqlite3 PRIVATE
    SQLITE_THREADSAFE=1
    SQLITE_ENABLE_COLUMN_METADATA
    SQLITE_ENABLE_MATH_FUNCTIONS
    SQLITE_MAX_VARIABLE_NUMBER=250000
    SQLITE_SECURE_DELETE
    SQLITE_SOUNDEX
    SQLITE_LIKE_DOESNT_MATCH_BLOBS
    SQLITE_USE_URI
    HAVE_ISNAN
    SQLITE_OMIT_LOAD_EXTENSION)
target_compile_options(cuvexa_sqlite3 PRIVATE -w)
set_property(GLOBAL APPEND PROPERTY CUVEXA_LIBRARIES cuvexa_sqlite3)
add_library(SQLite::SQLite3 ALIAS cuvexa_sqlite3)
set(SQLite3_FOUND TRUE)
