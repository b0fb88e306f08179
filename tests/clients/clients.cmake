# The client in Python, against the program. That in TypeScript needs packages of others: `./run clients` tests it.
if(TARGET cuvexa_clients AND TARGET cuvexa_service)
    add_test(NAME clients.python COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/python_test.py)
    set_tests_properties(clients.python PROPERTIES TIMEOUT 300 ENVIRONMENT
        "CUVEXA=$<TARGET_FILE:cuvexa>;CUVEXA_SOURCE=${PROJECT_SOURCE_DIR};CUVEXA_CLIENTS=${CMAKE_BINARY_DIR}/clients;PYTHONDONTWRITEBYTECODE=1")
endif()
