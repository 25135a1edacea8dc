# Settings that every target of this project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC OFF)

# Hardens what is shipped: checked copies, stack guards, and linker tables that become read-only once they are filled at the
# start. Position-independent programs can be loaded at random addresses.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(KV_HARDENED "-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -Wformat -Werror=format-security")
add_link_options($<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)

option(KV_QUICK "A release that is built in less time: optimised little, and without debug information" OFF)
if(KV_QUICK)
  set(CMAKE_CXX_FLAGS_RELEASE "-O1 -DNDEBUG ${KV_HARDENED}")
else()
  # -O3: Debian's compilers vectorise the loops over pixels at no lower level. -g: the comparison of binary interfaces reads
  # the types from the debug information. -gno-record-gcc-switches: the options of the building machine are kept out of it.
  set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG -g -gno-record-gcc-switches ${KV_HARDENED}")
endif()
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1 -fno-omit-frame-pointer")

# Keeps the names of the building machine's folders out of what is built, so that builds in different places give the same
# bytes.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=./build)
endif()
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

set(KV_SANITIZE "" CACHE STRING "Sanitizers for every target, as the compiler's -fsanitize takes them")
if(KV_SANITIZE)
  add_compile_options(-fsanitize=${KV_SANITIZE} -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KV_SANITIZE})
  # For code that must know which sanitizer it runs under. The compilers' own macros for it differ.
  foreach(sanitizer address thread undefined)
    if(KV_SANITIZE MATCHES ${sanitizer})
      string(TOUPPER KV_${sanitizer}_SANITIZED definition)
      add_compile_definitions(${definition})
    endif()
  endforeach()
endif()

option(KV_FUZZ "Build fuzz/ as programs of libFuzzer, which takes clang" OFF)
if(KV_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(KV_CCACHE ccache)
if(KV_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KV_CCACHE})
endif()

# Most of the time to compile a source goes to its headers, above all Qt's; sources that are compiled as one share it.
option(KV_UNITY "Compile several sources as one. OFF proves that each compiles alone; clang-tidy needs that too" ON)
set(CMAKE_UNITY_BUILD ${KV_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 12)

# Warnings are errors in our own code. Qt's headers are system headers, which give none. Where packages are built, with
# whatever compiler for whatever architecture, a warning that is new or mistaken does not stop them.
option(KV_WARNINGS_ARE_ERRORS "Stop at warnings" ON)
add_library(kv_warnings INTERFACE)
target_compile_options(kv_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wundef
  $<$<BOOL:${KV_WARNINGS_ARE_ERRORS}>:-Werror>)
