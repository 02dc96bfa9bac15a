# Fails unless all files that state the version of the project agree with the public header.
#   cmake -D SOURCE_DIR=<root> -D VERSION=<version> -P check_versions.cmake
cmake_minimum_required(VERSION 3.21)

function(expect file pattern)
  file(READ ${SOURCE_DIR}/${file} text)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "${file} does not state a version")
  endif()
  if(NOT CMAKE_MATCH_1 STREQUAL VERSION)
    message(FATAL_ERROR "${file} states the version ${CMAKE_MATCH_1}, not ${VERSION}")
  endif()
endfunction()

expect(CHANGELOG.md "\n## ([0-9.]+) \\(20[0-9][0-9]-[0-9][0-9]-[0-9][0-9]\\)\n")
expect(CITATION.cff "\nversion: ([0-9.]+)\n")
expect(debian/changelog "^zelaccess \\(([0-9.]+)\\)")
expect(cmake/recipes/vcpkg/zelaccess/vcpkg.json "\"version\": \"([0-9.]+)\"")
