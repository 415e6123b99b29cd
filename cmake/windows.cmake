# The add-in for Word, its companion and what they are made of. Everything is linked in, so that a library needs none but
# those of Windows.
add_compile_definitions(UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
add_link_options(-static)

add_subdirectory(marker)
add_subdirectory(hosts/unicode)
add_subdirectory(hosts/com)
add_subdirectory(hosts/win32)
add_subdirectory(apps/TermMarker)
add_subdirectory(apps/KVXDLLCOM)
add_subdirectory(docs)

# Tests have no Word: they have the host for .docx files behind a server of their own.
if(KVX_TESTS)
  set(cross ${CMAKE_SOURCE_DIR}/build/cross)
  find_package(ZLIB REQUIRED GLOBAL)
  add_library(PkgConfig::libzip INTERFACE IMPORTED)
  target_include_directories(PkgConfig::libzip INTERFACE ${cross}/include)
  target_compile_definitions(PkgConfig::libzip INTERFACE ZIP_STATIC)
  target_link_libraries(PkgConfig::libzip INTERFACE ${cross}/lib/libzip.a ZLIB::ZLIB)
  add_library(PkgConfig::libdeflate INTERFACE IMPORTED)
  target_include_directories(PkgConfig::libdeflate INTERFACE ${cross}/include)
  target_link_libraries(PkgConfig::libdeflate INTERFACE ${cross}/lib/libdeflate.a)
  add_library(PkgConfig::pugixml INTERFACE IMPORTED)
  target_include_directories(PkgConfig::pugixml INTERFACE ${cross}/include)
  target_link_libraries(PkgConfig::pugixml INTERFACE ${cross}/lib/libpugixml.a)
  add_subdirectory(hosts/docx)
  add_subdirectory(hosts/menus)
  # Not those of Windows alone: no other build would miss an include there.
  precompile_library_headers(kvxmarker kvxdocx)
  enable_testing()
  add_subdirectory(tests/windows)
endif()
