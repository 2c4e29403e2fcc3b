# Language level, warnings and Qt's code generators, the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)

option(KESTOR_BENCH "Build the benchmark suite" OFF)
option(KESTOR_FUZZ "Build the fuzz targets" OFF)
set(KESTOR_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fcoroutines)
  if(CMAKE_UNITY_BUILD)
    # Joined files are no main file to GCC, which then warns of types of the anonymous namespace in coroutines.
    add_compile_options(-Wno-subobject-linkage)
  endif()
endif()
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

if(KESTOR_SANITIZE)
  add_compile_options(-fsanitize=${KESTOR_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${KESTOR_SANITIZE})
  if(KESTOR_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # What the sanitizer adds hides from GCC that an optional value is only read where there is one.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
