# Libraries of the tools, samples and tests; the product itself links none of them.

# SQLite: the database of the sample host. One translation unit, fetched by a script, the same for every target.
set(ORV_SQLITE_DIR "${CMAKE_SOURCE_DIR}/build/deps/sqlite3")
if(NOT EXISTS "${ORV_SQLITE_DIR}/sqlite3.c")
    message(FATAL_ERROR "SQLite is not there yet: run scripts/fetch-sqlite once, then configure again.")
endif()
add_library(orv_sqlite STATIC EXCLUDE_FROM_ALL "${ORV_SQLITE_DIR}/sqlite3.c")
target_include_directories(orv_sqlite SYSTEM PUBLIC "${ORV_SQLITE_DIR}")
# The sample host uses a connection from one thread. A double-quoted name must never turn into a text by accident.
target_compile_definitions(orv_sqlite PRIVATE SQLITE_THREADSAFE=0 SQLITE_DQS=0 SQLITE_OMIT_LOAD_EXTENSION
    SQLITE_OMIT_DEPRECATED SQLITE_OMIT_SHARED_CACHE SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_MAX_EXPR_DEPTH=1000)
# -O1 halves the build time of this file; the sample data does not need more. What happens inside of the library is its
# authors' concern: the sanitizers look at its callers, and double the time otherwise.
target_compile_options(orv_sqlite PRIVATE -w -O1 $<$<BOOL:${ORV_SANITIZE}>:-fno-sanitize=all>)

# Header-only libraries of the system. /usr/include as a whole must not reach a MinGW compiler, so the library's own
# folder is linked into the build tree.
function(orv_header_library target folder package)
    if(NOT IS_DIRECTORY "/usr/include/${folder}")
        message(FATAL_ERROR "The headers of ${folder} are missing: install ${package}.")
    endif()
    set(root "${CMAKE_BINARY_DIR}/deps/${target}")
    file(MAKE_DIRECTORY "${root}")
    file(CREATE_LINK "/usr/include/${folder}" "${root}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE "${root}")
endfunction()

orv_header_library(orv_json nlohmann nlohmann-json3-dev)
orv_header_library(orv_cli CLI libcli11-dev)
