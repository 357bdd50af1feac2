# Target kv_openwbem: OpenWBEM's C++ provider interface, from an installation (OPENWBEM_ROOT) or from the stand-in.
if(NOT OPENWBEM_ROOT)
  add_subdirectory(${CMAKE_SOURCE_DIR}/standins/openwbem)
  return()
endif()
