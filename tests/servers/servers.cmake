# The tests that need more than a program: a database server, a parser of T-SQL. They skip, and say why, on a machine
# without it.

# The operation tests, whole programs, on a PostgreSQL server of their own. What cannot run there stands in a file with
# the reason.
if(TARGET cuvexa_odbc)
    file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/only_on_sqlite.txt lines REGEX "^[A-Za-z*]")
    set(only_on_sqlite)
    foreach(line ${lines})
        string(REGEX REPLACE " .*" "" test "${line}")
        list(APPEND only_on_sqlite ${test})
    endforeach()
    list(JOIN only_on_sqlite ":" only_on_sqlite)
    foreach(folder servers receipts banks deposits checks advances requests cancellations)
        if(TARGET cuvexa_${folder}_tests)
            add_test(NAME postgresql.${folder} COMMAND ${CMAKE_CURRENT_LIST_DIR}/with_postgresql
                $<TARGET_FILE:cuvexa_${folder}_tests> --gtest_brief=1 --gtest_filter=-${only_on_sqlite})
            set_tests_properties(postgresql.${folder} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 900 LABELS servers)
        endif()
    endforeach()
endif()

# Debian's own interpreter, where Debian's parser is.
if(TARGET cuvexa AND EXISTS /usr/bin/python3)
    add_test(NAME servers.every_statement_is_tsql COMMAND /usr/bin/python3 ${CMAKE_CURRENT_LIST_DIR}/tsql_test.py $<TARGET_FILE:cuvexa>)
    set_tests_properties(servers.every_statement_is_tsql PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300 LABELS servers)
endif()
