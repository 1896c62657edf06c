# Warnings, sanitizers, ccache and link settings that every target of the project shares.

find_program(TESELA_CCACHE ccache)
if(TESELA_CCACHE)
    # Paths count from the project's folder, so that a fresh checkout elsewhere finds what was compiled before.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${TESELA_CCACHE})
endif()

add_library(tesela_settings INTERFACE)
target_compile_options(tesela_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # -fpch-preprocess lets ccache key precompiled headers; gcc 12 reports false dangling and
    # out-of-bounds accesses inside the standard library's own templates.
    target_compile_options(tesela_settings INTERFACE
        -fpch-preprocess -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(CMAKE_INTERPROCEDURAL_OPTIMIZATION AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Calls within the shared library go to its own functions, which may then become part of their callers. What
    # is warned of is told again when all files are compiled at once.
    add_compile_options(-fno-semantic-interposition)
    add_link_options(-Wno-stringop-overflow -Wno-restrict)
endif()
if(WIN32)
    # MinGW's gcc takes buffers that std::to_chars fills for uninitialised ones.
    target_compile_options(tesela_settings INTERFACE -Wno-maybe-uninitialized)
    target_compile_definitions(tesela_settings INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
    # The programs and the library need only the system: the compiler's run-time is linked in.
    add_link_options(-static -static-libgcc -static-libstdc++)
endif()
if(TESELA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(TESELA_FUZZ)
    # The fuzzer sees which branches an input takes, in all of the rings.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
