# The windowing toolkit and the print library, as targets.
#
#   Toolkit::GUI    Objective-C++ flags and the GNUstep libraries
#   Toolkit::CUPS   libcups

if(NOT CMAKE_OBJCXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR
    "Objective-C++ is compiled by clang: g++ mishandles @catch and messages to nil. "
    "Use a preset (cmake --preset release), or set CMAKE_OBJCXX_COMPILER=clang++.")
endif()

find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)
function(gnustep_variable name result)
  execute_process(COMMAND ${GNUSTEP_CONFIG} --variable=${name}
    OUTPUT_VARIABLE value OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${result} ${value} PARENT_SCOPE)
endfunction()
gnustep_variable(GNUSTEP_SYSTEM_HEADERS GNUSTEP_HEADERS)
gnustep_variable(GNUSTEP_SYSTEM_LIBRARIES GNUSTEP_LIBRARIES)

# clang has no Objective-C runtime headers and libraries of its own here; gcc's are used.
find_program(GCC gcc REQUIRED)
execute_process(COMMAND ${GCC} -print-file-name=include
  OUTPUT_VARIABLE GCC_INCLUDE OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${GCC} -print-libgcc-file-name
  OUTPUT_VARIABLE LIBGCC OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(GCC_LIBRARIES ${LIBGCC} DIRECTORY)
if(NOT EXISTS ${GCC_INCLUDE}/objc/objc.h)
  message(FATAL_ERROR "objc/objc.h is missing: install the package gobjc.")
endif()

find_library(GNUSTEP_BASE gnustep-base HINTS ${GNUSTEP_LIBRARIES} REQUIRED)
find_library(GNUSTEP_GUI gnustep-gui HINTS ${GNUSTEP_LIBRARIES} REQUIRED)
find_library(OBJC objc HINTS ${GCC_LIBRARIES} REQUIRED)
find_package(Cups REQUIRED)

add_library(Toolkit_GUI INTERFACE)
add_library(Toolkit::GUI ALIAS Toolkit_GUI)
target_compile_options(Toolkit_GUI INTERFACE
  "$<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-runtime=gcc;-fobjc-exceptions;-fexceptions;-fconstant-string-class=NSConstantString;-fno-strict-aliasing;SHELL:-idirafter ${GCC_INCLUDE}>")
target_compile_definitions(Toolkit_GUI INTERFACE
  "$<$<COMPILE_LANGUAGE:OBJCXX>:GNUSTEP;GNUSTEP_BASE_LIBRARY=1;GNU_GUI_LIBRARY=1;GNU_RUNTIME=1;_NATIVE_OBJC_EXCEPTIONS>")
target_include_directories(Toolkit_GUI SYSTEM INTERFACE ${GNUSTEP_HEADERS})
target_link_libraries(Toolkit_GUI INTERFACE ${GNUSTEP_GUI} ${GNUSTEP_BASE} ${OBJC})

# The PPD calls are marked deprecated in CUPS 2.x; they are what a PPD driver has.
add_library(Toolkit_CUPS INTERFACE)
add_library(Toolkit::CUPS ALIAS Toolkit_CUPS)
target_compile_definitions(Toolkit_CUPS INTERFACE _PPD_DEPRECATED=)
target_compile_options(Toolkit_CUPS INTERFACE -Wno-deprecated-declarations)
target_include_directories(Toolkit_CUPS SYSTEM INTERFACE ${CUPS_INCLUDE_DIRS})
target_link_libraries(Toolkit_CUPS INTERFACE ${CUPS_LIBRARIES})
