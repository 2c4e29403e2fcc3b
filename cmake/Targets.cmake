# kestor_library(NAME SOURCES ... LINKS ...): one folder of src/ as a static library, included as "folder/file.h".
function(kestor_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
endfunction()

# kestor_tests(NAME SOURCES ... LINKS ...): one folder of tests/ as a GoogleTest program, each test a ctest case.
function(kestor_tests name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINKS} test_support GTest::gtest GTest::gmock)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
