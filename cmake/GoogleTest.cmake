# Targets GTest::gtest, GTest::gtest_main, GTest::gmock: the distribution's libraries, or for another processor its sources.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(KV_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "Sources of GoogleTest (Debian package googletest)")
if(NOT EXISTS ${KV_GOOGLETEST_SOURCES}/CMakeLists.txt)
  message(FATAL_ERROR "No GoogleTest sources in ${KV_GOOGLETEST_SOURCES}: install the package googletest, "
                      "set KV_GOOGLETEST_SOURCES, or configure without tests (-DBUILD_TESTING=OFF).")
endif()
add_subdirectory(${KV_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
