# cuvexa_left_out(<out> <file>): the tests that cannot run somewhere, one a line with the reason behind ("Suite.test reason"), in the
# form in which a filter of GoogleTest leaves them out.
function(cuvexa_left_out out file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} lines REGEX "^[A-Za-z*]")
    list(TRANSFORM lines REPLACE " .*" "")
    list(JOIN lines ":" filter)
    set(${out} -${filter} PARENT_SCOPE)
endfunction()
