# cuvexa_fetch_sqlite(<folder>): sqlite3.c and sqlite3.h of the release that Debian 12 has, from a package of the npm registry
# that ships them. What is in the folder already is used again.
include(${CMAKE_CURRENT_LIST_DIR}/CuvexaFetchPackage.cmake)
set(sqlite_package_hash 9006504eac0c86e8d5f42d6b7a8282866bf041bc856ff4438fec83cb98e4c05f)
set(sqlite_hashes
    sqlite3.c de365966681a951cd2fd7b76796a683f0ec6458dfa8fc54cf16029d6833ef1d1
    sqlite3.h dc419c400665bd43b335d04d7562d78e1d5dcd464fa0d6150c9d5c3bc5d705f4)

function(cuvexa_fetch_sqlite folder)
    cuvexa_has_files(${folder} there ${sqlite_hashes})
    if(there)
        return()
    endif()
    cuvexa_fetch_package(${folder} problem better-sqlite3@8.1.0 ${sqlite_package_hash})
    if(problem)
        message(FATAL_ERROR
            "Cuvexa: no source of SQLite. Name a folder that has sqlite3.c and sqlite3.h with -DCUVEXA_SQLITE_SOURCE=…\n${problem}")
    endif()
    foreach(file sqlite3.c sqlite3.h)
        file(RENAME ${folder}/package/deps/sqlite3/${file} ${folder}/${file})
    endforeach()
    file(REMOVE_RECURSE ${folder}/package)
    cuvexa_has_files(${folder} there ${sqlite_hashes})
    if(NOT there)
        message(FATAL_ERROR "Cuvexa: the files of SQLite are not those that were expected, in ${folder}")
    endif()
endfunction()
