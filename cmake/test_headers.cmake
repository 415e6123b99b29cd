# Tests are compiled far more often than they are run for long: what is tested is optimised, the tests are not, and what
# nearly every test includes is read once.

# Adds kvxtestheaders, which reads them, for the tests of the folder it is called in and of those below.
macro(add_test_headers gtest)
  add_compile_options(-O0 -g1)
  add_library(kvxtestheaders OBJECT ${CMAKE_SOURCE_DIR}/tests/headers.cpp)
  target_link_libraries(kvxtestheaders PRIVATE kvxoptions ${gtest})
  target_precompile_headers(kvxtestheaders PRIVATE
    <gtest/gtest.h> <algorithm> <filesystem> <fstream> <functional> <map> <memory> <optional> <sstream> <string> <vector>)
endmacro()

# Lets all that is built in the folders use them, but fuzzers, which have flags of their own.
function(reuse_test_headers)
  foreach(folder IN LISTS ARGN)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER targets EXCLUDE REGEX "_fuzz$|^kvxtestheaders$")
    foreach(target IN LISTS targets)
      get_target_property(type ${target} TYPE)
      if(type MATCHES "EXECUTABLE|STATIC_LIBRARY")
        target_precompile_headers(${target} REUSE_FROM kvxtestheaders)
      endif()
    endforeach()
  endforeach()
endfunction()
