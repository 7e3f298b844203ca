# How every target of the project is compiled and linked.

add_library(driver_feature_compile_options INTERFACE)
# The sources of the plug-in name each other, and are named, from library/ on.
target_include_directories(driver_feature_compile_options
  INTERFACE ${PROJECT_SOURCE_DIR}/library ${PROJECT_SOURCE_DIR})
target_compile_options(driver_feature_compile_options INTERFACE
  -Wall -Wextra -Wconversion -Wshadow
  $<$<CXX_COMPILER_ID:Clang>:-Wstring-conversion>
  # GCC 12 sees overlapping copies in the joining of a literal and a text.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
  $<$<BOOL:${DRIVER_FEATURE_WERROR}>:-Werror>)

# GCC searches its memory for what it can free whenever that has doubled, which takes
# a tenth of a compilation. The compilers of this project need less than a gigabyte
# without: they search from there on. What is compiled stays the same.
target_compile_options(driver_feature_compile_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=500000>)

# As Debian builds its packages. What is compiled without optimising, which the
# property DRIVER_FEATURE_PLAIN says, cannot have the checked functions.
if(DRIVER_FEATURE_HARDENED)
  target_compile_options(driver_feature_compile_options INTERFACE
    -fstack-protector-strong -Wformat -Werror=format-security -Wdate-time
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:DRIVER_FEATURE_PLAIN>>>:-D_FORTIFY_SOURCE=2>)
endif()

# Floats are compared as they are stored: on 32-bit x86 the x87 registers would
# keep more digits than the variables.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_options(driver_feature_compile_options INTERFACE -msse2 -mfpmath=sse)
endif()

# Everything a loader resolves is resolved at once and then made read-only.
target_link_options(driver_feature_compile_options INTERFACE
  LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)

# driver_feature_plain(TARGET...): programs whose own code runs for moments, so that
# optimising it takes longer than it saves.
function(driver_feature_plain)
  foreach(target ${ARGN})
    set_target_properties(${target} PROPERTIES DRIVER_FEATURE_PLAIN ON)
    target_compile_options(${target} PRIVATE -O0)
  endforeach()
endfunction()

# driver_feature_lightly_optimized(TARGET...): libraries that wait for people, files or
# clients. Compiling them takes a third less than with everything that the preset
# release asks for. The library and what takes the time of a print job have it.
function(driver_feature_lightly_optimized)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
  endforeach()
endfunction()
