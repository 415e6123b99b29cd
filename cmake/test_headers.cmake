# Tests are compiled far more often than they are run for long: what is tested is optimised, the tests are not, and what
# nearly every test includes is read once.

# add_test_headers(NAME HEADER...): adds NAME, which reads them and the headers of the C++ library, for tests of the folder
# it is called in and of those below. Its definitions have to be theirs: link it with what brings some.
function(add_test_headers name)
  add_library(${name} OBJECT ${CMAKE_SOURCE_DIR}/tests/headers.cpp)
  target_link_libraries(${name} PRIVATE kvxoptions)
  target_precompile_headers(${name} PRIVATE
    <gtest/gtest.h> <algorithm> <filesystem> <fstream> <functional> <map> <memory> <optional> <sstream> <string> <vector> ${ARGN})
endfunction()

# reuse_test_headers(NAME FOLDER...): lets all that is built in the folders use them, but fuzzers, which have flags of
# their own.
function(reuse_test_headers name)
  foreach(folder IN LISTS ARGN)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER targets EXCLUDE REGEX "_fuzz$")
    list(REMOVE_ITEM targets ${name})
    foreach(target IN LISTS targets)
      get_target_property(type ${target} TYPE)
      if(type MATCHES "EXECUTABLE|STATIC_LIBRARY")
        target_precompile_headers(${target} REUSE_FROM ${name})
      endif()
    endforeach()
  endforeach()
endfunction()
