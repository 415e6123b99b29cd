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

if(KVX_TESTS)
  enable_testing()
  add_subdirectory(tests/windows)
endif()
