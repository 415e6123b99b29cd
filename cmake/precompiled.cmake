# The headers of the C++ library, read once for each of our libraries. It saves a fifth of a sanitizer build and
# two fifths of the core for Windows, and would hide an include that is missing: other builds go without.
option(KVX_PRECOMPILED "Read the headers of the C++ library once for each library" OFF)

# precompile_library_headers(TARGET...), for those that there are; with json.hpp for those that link with it.
function(precompile_library_headers)
  if(NOT KVX_PRECOMPILED)
    return()
  endif()
  foreach(target IN LISTS ARGN)
    if(TARGET ${target})
      target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <filesystem> <functional> <map> <memory> <optional> <sstream> <string> <string_view>
        <unordered_map> <utility> <vector>)
      get_target_property(libraries ${target} LINK_LIBRARIES)
      if("kvxjson" IN_LIST libraries)
        target_precompile_headers(${target} PRIVATE <nlohmann/json.hpp>)
      endif()
    endif()
  endforeach()
endfunction()
