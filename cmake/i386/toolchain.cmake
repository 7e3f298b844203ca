# 32-bit x86, the architecture of the production hosts, on a 64-bit machine.
# make_root.sh makes the folder of 32-bit libraries.

get_filename_component(I386_ROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/i386-root" ABSOLUTE)

set(CMAKE_CXX_COMPILER g++)
# Floats are compared as they are stored; the x87 registers would keep more
# digits than the variables.
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")

# The loader looks for what a library needs in the run path of the program as
# well, but only if it is of the old kind (DT_RPATH): libxml2 finds its own
# dependencies in this way.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--disable-new-dtags")
set(I386_LIBRARY_FOLDERS "${I386_ROOT}/usr/lib/i386-linux-gnu" "${I386_ROOT}/lib/i386-linux-gnu")
set(CMAKE_BUILD_RPATH ${I386_LIBRARY_FOLDERS})
foreach(folder IN LISTS I386_LIBRARY_FOLDERS)
  foreach(kind EXE SHARED MODULE)
    string(APPEND CMAKE_${kind}_LINKER_FLAGS_INIT " -Wl,-rpath-link,${folder}")
  endforeach()
endforeach()

set(LIBXML2_INCLUDE_DIR "${I386_ROOT}/usr/include/libxml2" CACHE PATH "")
set(LIBXML2_LIBRARY "${I386_ROOT}/usr/lib/i386-linux-gnu/libxml2.so" CACHE FILEPATH "")
set(EDIT_INCLUDE_FOLDER "${I386_ROOT}/usr/include" CACHE PATH "")
set(EDIT_LIBRARY "${I386_ROOT}/usr/lib/i386-linux-gnu/libedit.so.2" CACHE FILEPATH "")
set(CUPS_INCLUDE_DIR "${I386_ROOT}/usr/include" CACHE PATH "")
set(CUPS_LIBRARIES "${I386_ROOT}/usr/lib/i386-linux-gnu/libcups.so" CACHE FILEPATH "")
set(GNUTLS_INCLUDE_FOLDER "${I386_ROOT}/usr/include" CACHE PATH "")
set(GNUTLS_LIBRARY "${I386_ROOT}/usr/lib/i386-linux-gnu/libgnutls.so.30" CACHE FILEPATH "")
set(AVAHI_INCLUDE_FOLDER "${I386_ROOT}/usr/include" CACHE PATH "")
set(AVAHI_CLIENT_LIBRARY "${I386_ROOT}/usr/lib/i386-linux-gnu/libavahi-client.so.3" CACHE FILEPATH "")
set(AVAHI_COMMON_LIBRARY "${I386_ROOT}/usr/lib/i386-linux-gnu/libavahi-common.so.3" CACHE FILEPATH "")
set(ZLIB_INCLUDE_DIR "${I386_ROOT}/usr/include" CACHE PATH "")
# The link of the development package names a file outside the root.
set(ZLIB_LIBRARY "${I386_ROOT}/lib/i386-linux-gnu/libz.so.1" CACHE FILEPATH "")
set(GTest_DIR "${I386_ROOT}/usr/lib/cmake/GTest" CACHE PATH "")
set(benchmark_DIR "${I386_ROOT}/usr/lib/cmake/benchmark" CACHE PATH "")
