# Compiler settings that all targets share, and the helpers by which the folders declare theirs.

option(VESK_TESTS "Build the tests" ON)
option(VESK_BENCH "Build the benchmark" OFF)
option(VESK_FUZZ "Build the fuzz targets; needs clang" OFF)
option(VESK_WERROR "Treat warnings as errors" OFF)
set(VESK_SANITIZE "" CACHE STRING "address (with undefined behaviour) or thread")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_UNITY_BUILD_BATCH_SIZE 24)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_program(VESK_CCACHE ccache)
if(VESK_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_NOHASHDIR=1
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${VESK_CCACHE})
endif()
find_program(VESK_MOLD mold)
if(VESK_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_link_options(-fuse-ld=mold)
endif()

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
  if(VESK_WERROR)
    add_compile_options(-Werror)
  endif()
  if(CMAKE_UNITY_BUILD)
    # Sources that are included look like headers to the compiler, their own names like exported ones.
    add_compile_options(-Wno-subobject-linkage)
  endif()
  if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    # Line tables are enough for stack traces and halve the size of what is linked.
    string(REPLACE "-g" "-g1" CMAKE_CXX_FLAGS_DEBUG "${CMAKE_CXX_FLAGS_DEBUG}")
  endif()
endif()
if(VESK_SANITIZE STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
elseif(VESK_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                        QT_NO_URL_CAST_FROM_STRING QT_DISABLE_DEPRECATED_BEFORE=0x060400)
include_directories(${CMAKE_SOURCE_DIR})

# vesk_objects(NAME SOURCES... LINK libraries...): code that ends up in more than one binary
# (a module folder goes into the module and into the tests of its dialogs).
function(vesk_objects name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} OBJECT ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
endfunction()

# All test programs in which threads run: what the thread sanitizer's preset builds.
add_custom_target(thread_tests)

# What a test sees of its surroundings, the same on every machine: a screen larger than the
# offscreen platform's own, one zone, one locale, no desktop bus.
set(VESK_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_SOURCE_DIR}/dev/offscreen.json"
  LC_ALL=C.UTF-8
  TZ=Asia/Shanghai
  DBUS_SESSION_BUS_ADDRESS=disabled:
  UBSAN_OPTIONS=print_stacktrace=1
  # Both sanitizers otherwise look at the storage of threads of loaded libraries by a guess at how it
  # was laid out, and die of a wrong one.
  "TSAN_OPTIONS=ignore_noninstrumented_modules=1 halt_on_error=1 die_after_fork=0 intercept_tls_get_addr=0"
  ASAN_OPTIONS=detect_leaks=1:intercept_tls_get_addr=0)

# vesk_test(NAME SOURCES... LINK libraries... [LABELS labels...]): one GoogleTest program, run
# without a display; the label "threads" takes it into the thread sanitizer's run.
function(vesk_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock)
  # The module that a test loads finds the services' factories in the program.
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    LABELS "${ARG_LABELS}"
    TIMEOUT 600
    ENVIRONMENT "${VESK_TEST_ENVIRONMENT}")
  if("threads" IN_LIST ARG_LABELS)
    add_dependencies(thread_tests ${name})
  endif()
endfunction()
