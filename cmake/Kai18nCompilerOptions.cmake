# Compiler settings shared by every target of the project.
#
# Floating-point code must give the same digits on every machine: no fused
# multiply-add contraction, no fast-math, no tuning for the build host.

add_library(kai18n_build_flags INTERFACE)
target_compile_options(kai18n_build_flags INTERFACE -ffp-contract=off)

# Warnings are errors in our own code only; third-party headers come in as SYSTEM.
add_library(kai18n_warnings INTERFACE)
target_compile_options(kai18n_warnings INTERFACE -Wall -Wextra -Werror)

if(KAI18N_SANITIZE)
    set(_kai18n_san -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_compile_options(kai18n_build_flags INTERFACE ${_kai18n_san})
    target_link_options(kai18n_build_flags INTERFACE ${_kai18n_san})
endif()

# ThreadSanitizer builds run the tests that share locales across threads.
if(KAI18N_TSAN)
    if(KAI18N_SANITIZE OR KAI18N_BUILD_FUZZ)
        message(FATAL_ERROR "KAI18N_TSAN cannot be combined with AddressSanitizer builds")
    endif()
    set(_kai18n_tsan -fsanitize=thread -fno-omit-frame-pointer)
    target_compile_options(kai18n_build_flags INTERFACE ${_kai18n_tsan})
    target_link_options(kai18n_build_flags INTERFACE ${_kai18n_tsan})
endif()

# Fuzz builds instrument the library for coverage and check memory on every input.
if(KAI18N_BUILD_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "KAI18N_BUILD_FUZZ needs clang (e.g. -DCMAKE_CXX_COMPILER=clang++-14)")
    endif()
    set(_kai18n_fuzz_san -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_compile_options(kai18n_build_flags INTERFACE -fsanitize=fuzzer-no-link ${_kai18n_fuzz_san})
    target_link_options(kai18n_build_flags INTERFACE ${_kai18n_fuzz_san})
endif()
