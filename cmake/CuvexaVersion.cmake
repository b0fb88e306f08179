# Which program this is: version, engines, commit, and the day of the commit. Where there is no git, as in a package's source, the
# variables CUVEXA_COMMIT and SOURCE_DATE_EPOCH of the environment say it.

function(cuvexa_git out)
    execute_process(COMMAND git -C ${PROJECT_SOURCE_DIR} ${ARGN} OUTPUT_VARIABLE text ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

function(cuvexa_commit out)
    set(commit "$ENV{CUVEXA_COMMIT}")
    if(NOT commit)
        cuvexa_git(commit rev-parse --short=12 HEAD)
    endif()
    if(NOT commit)
        set(commit unknown)
    endif()
    set(${out} "${commit}" PARENT_SCOPE)
endfunction()

function(cuvexa_day out)
    if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
        cuvexa_git(seconds log -1 --format=%ct)
        if(seconds)
            set(ENV{SOURCE_DATE_EPOCH} ${seconds})
        endif()
    endif()
    string(TIMESTAMP day "%Y-%m-%d" UTC)
    set(${out} "${day}" PARENT_SCOPE)
endfunction()

# cuvexa_tell_version(<program>): only the sources that print it are compiled anew when it changes.
function(cuvexa_tell_version program)
    cuvexa_commit(commit)
    cuvexa_day(day)
    set(engines "SQLite ${SQLite3_VERSION}")
    if(TARGET cuvexa_postgresql)
        string(APPEND engines ", PostgreSQL")
    endif()
    if(TARGET cuvexa_odbc)
        string(APPEND engines ", ODBC")
    endif()
    set_source_files_properties(src/cli/version.cpp src/cli/manual.cpp PROPERTIES COMPILE_DEFINITIONS
        "CUVEXA_VERSION=\"${PROJECT_VERSION}\";CUVEXA_COMMIT=\"${commit}\";CUVEXA_DAY=\"${day}\";CUVEXA_ENGINES=\"${engines}\"")
endfunction()
