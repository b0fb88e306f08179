# The tests that need more than a program: a database server, a parser of T-SQL. They skip, and say why, on a machine
# without it.

# The ways to a PostgreSQL server that this build has, each with what with_postgresql is told and the first part of its
# tests' names.
set(ways)
if(TARGET cuvexa_postgresql)
    list(APPEND ways postgresql)
    set(way_of_postgresql)
endif()
if(TARGET cuvexa_odbc)
    list(APPEND ways odbc)
    set(way_of_odbc --odbc)
endif()

# The operation tests, whole programs, on a PostgreSQL server of their own. What cannot run there stands in a file with
# the reason.
if(ways)
    include(left_out.cmake)
    cuvexa_left_out(but_on_sqlite ${CMAKE_CURRENT_LIST_DIR}/only_on_sqlite.txt)
endif()
# Through ODBC most of them differ in nothing but the way; they have a label of their own, and their own time.
set(through_odbc_too servers statements deposits demonstration killed_server)
function(label_server_test way what)
    set(label servers)
    if(way STREQUAL "odbc" AND NOT what IN_LIST through_odbc_too)
        set(label odbc)
    endif()
    set_tests_properties(${way}.${what} PROPERTIES LABELS ${label})
endfunction()

foreach(way ${ways})
    foreach(folder servers statements receipts banks deposits checks advances requests cancellations reports races)
        if(TARGET cuvexa_${folder}_tests)
            add_test(NAME ${way}.${folder} COMMAND ${CMAKE_CURRENT_LIST_DIR}/with_postgresql ${way_of_${way}}
                $<TARGET_FILE:cuvexa_${folder}_tests> --gtest_brief=1 --gtest_filter=${but_on_sqlite})
            set_tests_properties(${way}.${folder} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 900)
            label_server_test(${way} ${folder})
        endif()
    endforeach()
endforeach()

# The statements bare, for the figures of the load test.
if(UNIX AND TARGET cuvexa_sqlite AND nlohmann_json_FOUND)
    add_executable(cuvexa_replay ${CMAKE_CURRENT_LIST_DIR}/replay/main.cpp)
    target_include_directories(cuvexa_replay PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_compile_options(cuvexa_replay PRIVATE -O2)
    target_link_libraries(cuvexa_replay PRIVATE cuvexa_options cuvexa_sqlite nlohmann_json::nlohmann_json)
    if(TARGET cuvexa_odbc)
        target_link_libraries(cuvexa_replay PRIVATE cuvexa_odbc)
        target_compile_definitions(cuvexa_replay PRIVATE CUVEXA_WITH_ODBC)
    endif()
endif()

# Statements as the product composes them, for the parser of T-SQL.
if(UNIX AND TARGET cuvexa_sqlite AND nlohmann_json_FOUND)
    add_executable(cuvexa_compose ${CMAKE_CURRENT_LIST_DIR}/compose/main.cpp)
    target_include_directories(cuvexa_compose PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(cuvexa_compose PRIVATE cuvexa_options cuvexa_sqlite nlohmann_json::nlohmann_json)
endif()

# Programs of users, in Debian's own interpreter, where Debian's parser is.
function(add_users_test name)
    add_test(NAME ${name} COMMAND ${ARGN})
    set_tests_properties(${name} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 1200 LABELS servers RUN_SERIAL TRUE)
endfunction()

if(TARGET cuvexa AND EXISTS /usr/bin/python3)
    set(python /usr/bin/python3 -B)
    set(here ${CMAKE_CURRENT_LIST_DIR})
    set(program $<TARGET_FILE:cuvexa>)
    add_users_test(servers.every_statement_is_tsql ${python} ${here}/tsql_test.py ${program})
    add_users_test(servers.no_value_becomes_a_statement ${python} ${here}/values_test.py ${program} $<TARGET_FILE:cuvexa_compose>)
    add_users_test(sqlite.many_users ${python} ${here}/load_test.py ${program} --users 1,8 --rounds 4)
    add_users_test(sqlite.killed_programs ${python} ${here}/kill_test.py programs ${program} --repeat 2)
    if(TARGET cuvexa_clients AND TARGET cuvexa_service)
        # Ten runs of each: service_kill_test.py CUVEXA CLIENTS --runs 10
        set(with_clients ${program} ${CMAKE_BINARY_DIR}/clients)
        add_users_test(sqlite.killed_service ${python} ${here}/service_kill_test.py ${with_clients})
        if(TARGET cuvexa_postgresql)
            add_users_test(postgresql.service ${here}/with_postgresql ${python} ${here}/service_test.py ${with_clients})
            add_users_test(postgresql.killed_service ${here}/with_postgresql ${python} ${here}/service_kill_test.py
                ${with_clients})
        endif()
    endif()
    foreach(way ${ways})
        set(on_server ${here}/with_postgresql ${way_of_${way}})
        add_users_test(${way}.demonstration ${on_server} sh -c
            [["$0" init --sample --db "$CUVEXA_TEST_DB" && "$0" demo --db "$CUVEXA_TEST_DB" && "$0" audit --db "$CUVEXA_TEST_DB"]]
            ${program})
        add_users_test(${way}.no_value_becomes_a_statement ${on_server} ${python} ${here}/values_test.py ${program}
            $<TARGET_FILE:cuvexa_compose>)
        add_users_test(${way}.many_users ${on_server} ${python} ${here}/load_test.py ${program} --users 1,8 --rounds 4)
        add_users_test(${way}.killed_programs ${on_server} ${python} ${here}/kill_test.py programs ${program} --repeat 2)
        add_users_test(${way}.killed_server ${on_server} ${python} ${here}/kill_test.py server ${program}
            --kills 2 --repeat 2)
        if(way STREQUAL "postgresql")
            add_users_test(postgresql.clock ${on_server} ${python} ${here}/clock_test.py ${program})
            add_users_test(postgresql.replica ${on_server} ${python} ${here}/replica_test.py ${program})
            add_users_test(postgresql.certificate ${on_server} ${python} ${here}/certificate_test.py ${program})
        endif()
        # What was acknowledged must survive.
        set_tests_properties(${way}.killed_server PROPERTIES ENVIRONMENT CUVEXA_TEST_DURABLE=1)
        foreach(what demonstration no_value_becomes_a_statement many_users killed_programs killed_server)
            label_server_test(${way} ${what})
        endforeach()
    endforeach()
endif()
