# The headers of the C++ library, read once for each of our libraries. It saves a fifth of a sanitizer build and
# two fifths of the core for Windows, and would hide an include that is missing: other builds go without.
option(KVX_PRECOMPILED "Read the headers of the C++ library once for each library" OFF)

function(precompile_library_headers)
  if(NOT KVX_PRECOMPILED)
    return()
  endif()
  foreach(target IN LISTS ARGN)
    if(TARGET ${target})
      target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <filesystem> <functional> <map> <memory> <optional> <sstream> <string> <string_view>
        <unordered_map> <utility> <vector>)
    endif()
  endforeach()
endfunction()
