# What holds for every target of the project: language, warnings, sanitizers.

option(ORV_BUILD_TESTS "Build the tests" ON)
option(ORV_SANITIZE "Address and undefined-behaviour sanitizers (native builds only)" OFF)
option(ORV_FUZZ "Build the fuzzers (Clang only)" OFF)
option(ORV_WERROR "Treat warnings as errors" ON)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Carries the warnings; every target of our own links it, no dependency does.
add_library(orv_options INTERFACE)
target_compile_options(orv_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wunused -Wnull-dereference -Wdouble-promotion
    -Wformat=2 -Wimplicit-fallthrough)
if(ORV_WERROR)
    target_compile_options(orv_options INTERFACE -Werror)
endif()
# Flow warnings of GCC 12 that fire inside libstdc++ (std::u16string, std::variant) once it inlines.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(orv_options INTERFACE -Wno-restrict -Wno-null-dereference -Wno-maybe-uninitialized
        -Wno-stringop-overflow -Wno-array-bounds -Wno-stringop-overread)
endif()

if(ORV_SANITIZE)
    # All C++ code in the process must be instrumented alike, dependencies included.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# orv_quick_builds(): for folders of tests and tools. Under the sanitizers the compiler takes three times as long when it
# optimizes, and what runs there is mostly the core and the sample host, which stay optimized.
macro(orv_quick_builds)
    if(ORV_SANITIZE)
        add_compile_options(-O0)
    endif()
endmacro()

if(WIN32)
    # Windows 7 is the oldest system of the hosts; the runtimes go into the binaries.
    target_compile_definitions(orv_options INTERFACE _WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE NOMINMAX
        WIN32_LEAN_AND_MEAN)
    add_link_options(-static)
    # COM interface tables and callback casts are written in C style by the platform's own macros.
    target_compile_options(orv_options INTERFACE -Wno-cast-function-type)
    # COM interfaces have no destructor by design: objects go by Release.
    target_compile_options(orv_options INTERFACE -Wno-non-virtual-dtor)
endif()
