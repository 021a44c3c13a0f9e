# Warnings, sanitizers and coverage for our own code.
#
# House::Flags is linked by every target of ours.

option(TAPE_SANITIZE "Address, undefined-behaviour and leak sanitizers" OFF)
option(TAPE_COVERAGE "Source-based coverage counters" OFF)

add_library(House_Flags INTERFACE)
add_library(House::Flags ALIAS House_Flags)
target_compile_options(House_Flags INTERFACE
  -Wall -Wextra -Werror -Wshadow -Wnon-virtual-dtor -Wformat=2 -Wno-unused-parameter
  -Wimplicit-fallthrough -Wextra-semi)
# Debug information in a form that Debian 12's valgrind reads.
target_compile_options(House_Flags INTERFACE -gdwarf-4)

if(TAPE_SANITIZE)
  # The bundle is loaded into a running program, so both share one runtime library.
  set(sanitize -fsanitize=address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  target_compile_options(House_Flags INTERFACE ${sanitize})
  # A BOOL is a byte that a caller may set to 2, and functions found by name are called through a
  # type of the caller's own.
  target_compile_options(House_Flags INTERFACE
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fno-sanitize=bool,function>)
  target_link_options(House_Flags INTERFACE ${sanitize} -shared-libasan)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-x86_64.so
    OUTPUT_VARIABLE ASAN_RUNTIME OUTPUT_STRIP_TRAILING_WHITESPACE)
  get_filename_component(ASAN_RUNTIME_FOLDER ${ASAN_RUNTIME} DIRECTORY)
  set(CMAKE_BUILD_RPATH ${ASAN_RUNTIME_FOLDER})
endif()

# House::Counters is linked by what the targets of fuzz/ run through: there the fuzzer sees which
# branches an input takes.
option(TAPE_FUZZ "Counters for the fuzzer" OFF)
add_library(House_Counters INTERFACE)
add_library(House::Counters ALIAS House_Counters)
if(TAPE_FUZZ)
  target_compile_options(House_Counters INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(TAPE_COVERAGE)
  target_compile_options(House_Flags INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(House_Flags INTERFACE -fprofile-instr-generate -fcoverage-mapping)
endif()
