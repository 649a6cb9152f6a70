# Compiler settings that hold for every target, and the one function that makes a folder's library.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CORVEL_CCACHE ccache)
if(CORVEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Without these it keeps nothing that is compiled with precompiled headers, as the tests are.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CORVEL_CCACHE})
endif()

add_compile_options(
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wimplicit-fallthrough -Wnull-dereference -Werror)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -D_GLIBCXX_ASSERTIONS)
    add_link_options(-Wl,-z,relro,-z,now)
endif()
add_link_options(-Wl,--as-needed)

include(CheckPIESupported)
check_pie_supported()

set(CORVEL_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")
if(CORVEL_SANITIZE)
    add_compile_options(-fsanitize=${CORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${CORVEL_SANITIZE})
    # GCC sees null dereferences in the sanitizers' own branches.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-Wno-null-dereference -Wno-maybe-uninitialized)
    endif()
endif()

# corvel_library(NAME SOURCES ... PUBLIC ... PRIVATE ...): one static library for one folder.
function(corvel_library name)
    cmake_parse_arguments(LIBRARY "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${LIBRARY_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${LIBRARY_PUBLIC} PRIVATE ${LIBRARY_PRIVATE})
endfunction()
