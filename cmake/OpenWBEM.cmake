# Target kv_openwbem: OpenWBEM's C++ provider interface, from an installation (OPENWBEM_ROOT) or from the stand-in.

# kv_repair_openwbem_header(HEADER DIRECTORY RESULT): in an unmodified installation OW_SharedLibraryReference.hpp lacks a
# keyword that every compiler of today demands. If HEADER lacks it, DIRECTORY gets a copy with the keyword, and RESULT is
# that directory. Otherwise RESULT is empty. Nothing in the installation is changed.
function(kv_repair_openwbem_header header directory result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
  file(READ ${header} text)
  string(REPLACE "m_obj.cast_to<U>()" "m_obj.template cast_to<U>()" repaired "${text}")
  if(repaired STREQUAL text)
    set(${result} "" PARENT_SCOPE)
    return()
  endif()
  # The copy is written only when it differs. Otherwise each configuration would lead to a compilation of everything.
  cmake_path(GET header FILENAME name)
  set(copy ${directory}/${name})
  set(present "")
  if(EXISTS ${copy})
    file(READ ${copy} present)
  endif()
  if(NOT repaired STREQUAL present)
    file(WRITE ${copy} "${repaired}")
  endif()
  set(${result} ${directory} PARENT_SCOPE)
endfunction()

# kv_check_openwbem_header(HEADER INCLUDE_DIRECTORIES): ends the configuration if the header does not compile.
function(kv_check_openwbem_header header directories)
  cmake_path(GET header FILENAME name)
  set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
  list(TRANSFORM directories PREPEND -isystem OUTPUT_VARIABLE options)
  try_compile(compiles
    SOURCE_FROM_CONTENT include.cpp "#include <OW_vector.hpp>\n#include <${name}>\n"
    COMPILE_DEFINITIONS ${options}
    CXX_STANDARD 17 OUTPUT_VARIABLE output NO_CACHE)
  if(NOT compiles)
    message(FATAL_ERROR "${header} does not compile, repaired or not:\n${output}")
  endif()
endfunction()

if(NOT OPENWBEM_ROOT)
  add_subdirectory(${CMAKE_SOURCE_DIR}/standins/openwbem)
  return()
endif()

block()
  # All headers that the provider and the interface's conformance tests include: a missing one is found here, not by the
  # compiler.
  file(GLOB_RECURSE including CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/src/*.cpp ${CMAKE_SOURCE_DIR}/src/*.hpp ${CMAKE_SOURCE_DIR}/tests/unit/openwbem/*Conformance.cpp)
  set(headers OW_config.h OW_vector.hpp OW_SharedLibraryReference.hpp)
  foreach(source IN LISTS including)
    file(STRINGS ${source} lines REGEX "^#include <OW_")
    list(TRANSFORM lines REPLACE "^#include <([^>]+)>.*" "\\1")
    list(APPEND headers ${lines})
  endforeach()
  list(REMOVE_DUPLICATES headers)

  set(problems "")
  # The headers include each other by bare name, so they must all lie in one folder.
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

  set(header ${include_directory}/OW_SharedLibraryReference.hpp)
  kv_repair_openwbem_header(${header} ${CMAKE_BINARY_DIR}/openwbem-repaired repaired_directory)
  set(directories ${repaired_directory} ${include_directory})
  kv_check_openwbem_header(${header} "${directories}")
  if(repaired_directory)
    message(STATUS "OpenWBEM: using a repaired copy of ${header}")
  else()
    message(STATUS "OpenWBEM: ${header} needs no repair")
  endif()

  add_library(kv_openwbem INTERFACE)
  target_include_directories(kv_openwbem SYSTEM INTERFACE ${repaired_directory} ${include_directory})
  # The headers include one another from their own folder, so the repaired copy must come before all of them. OW_vector.hpp
  # comes even before the copy: it declares the copying of vectors, which arrays of plain types need.
  target_compile_options(kv_openwbem INTERFACE
    "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-include OW_vector.hpp -include OW_SharedLibraryReference.hpp>")
  target_link_libraries(kv_openwbem INTERFACE ${libraries})
  # A program of the build tree finds these libraries by its run path. Without new tags, the same path serves for the
  # libraries that they need in turn.
  target_link_options(kv_openwbem INTERFACE LINKER:--disable-new-dtags)
  # getLogger() without a name is deprecated in late headers, but early headers have no other.
  target_compile_options(kv_openwbem INTERFACE -Wno-deprecated-declarations)
endblock()
