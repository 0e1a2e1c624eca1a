# SPDX-License-Identifier: GPL-3.0-or-later
# Warnings, hardening, sanitizers, compiler cache and linker for every target of the project.

find_program(CCACHE ccache)
if(CCACHE)
    # Without this leave it does not cache what is compiled with a precompiled header.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(morva_options INTERFACE)
target_compile_options(morva_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>  # false alarms on string concatenation in g++ 12
    $<$<BOOL:${MORVA_WERROR}>:-Werror>)
target_include_directories(morva_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

# What goes to users, and what the tests run: an error in handling memory ends the program instead of serving whoever
# caused it. A linker that gets code for a fixed address fails here. script/check_programs looks at the outcome.
if(NOT CMAKE_BUILD_TYPE STREQUAL Debug AND NOT MORVA_SANITIZE)
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        add_compile_options(-fcf-protection)
    endif()
    add_link_options(-pie -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

if(MORVA_SANITIZE)
    add_compile_options(-fsanitize=${MORVA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${MORVA_SANITIZE})
endif()
if(MORVA_FUZZ)
    # In every room: a fuzzer that does not see which lines an input reached only guesses.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(MORVA_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
