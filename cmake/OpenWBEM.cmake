# Target kv_openwbem: OpenWBEM's C++ provider interface, from an installation (OPENWBEM_ROOT) or from the stand-in.
if(NOT OPENWBEM_ROOT)
  add_subdirectory(${CMAKE_SOURCE_DIR}/standins/openwbem)
  return()
endif()

block()
  # All headers that the provider and the interface's conformance test include, so that none is missed only by the compiler.
  file(GLOB_RECURSE including CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/src/*.cpp ${CMAKE_SOURCE_DIR}/src/*.hpp ${CMAKE_SOURCE_DIR}/tests/unit/openwbem/*Conformance.cpp)
  set(headers OW_config.h)
  foreach(source IN LISTS including)
    file(STRINGS ${source} lines REGEX "^#include <OW_")
    list(TRANSFORM lines REPLACE "^#include <([^>]+)>.*" "\\1")
    list(APPEND headers ${lines})
  endforeach()
  list(REMOVE_DUPLICATES headers)

  set(problems "")
  # The headers include each other by bare name, so that they all lie where the first one does.
  find_path(include_directory OW_config.h
    PATHS ${OPENWBEM_ROOT}/include/openwbem ${OPENWBEM_ROOT}/include NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  if(include_directory)
    string(REGEX REPLACE "/$" "" include_directory ${include_directory})
    foreach(header IN LISTS headers)
      if(NOT EXISTS ${include_directory}/${header})
        string(APPEND problems "\n  no header ${header} in ${include_directory}")
      endif()
    endforeach()
    file(STRINGS ${include_directory}/OW_config.h version REGEX "^#[ \t]*define[ \t]+OW_VERSION[ \t]")
    if(NOT version MATCHES "\"3\\.0\\.3\"")
      string(APPEND problems "\n  OW_config.h does not define OW_VERSION as \"3.0.3\"")
    endif()
  else()
    string(APPEND problems "\n  no header OW_config.h in ${OPENWBEM_ROOT}/include/openwbem or ${OPENWBEM_ROOT}/include")
  endif()

  set(libraries "")
  foreach(name IN ITEMS openwbem owprovider owcppprovifc)
    unset(library)
    find_library(library ${name}
      PATHS ${OPENWBEM_ROOT}/lib NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(library)
      list(APPEND libraries ${library})
    else()
      string(APPEND problems "\n  no library ${name} in ${OPENWBEM_ROOT}/lib")
    endif()
  endforeach()

  if(problems)
    message(FATAL_ERROR "OPENWBEM_ROOT=${OPENWBEM_ROOT} is no development installation of OpenWBEM 3.0.3:${problems}")
  endif()

  add_library(kv_openwbem INTERFACE)
  target_include_directories(kv_openwbem SYSTEM INTERFACE ${include_directory})
  target_link_libraries(kv_openwbem INTERFACE ${libraries})
  # getLogger() without a name is deprecated in late headers and the only one that early headers have.
  target_compile_options(kv_openwbem INTERFACE -Wno-deprecated-declarations)
endblock()
