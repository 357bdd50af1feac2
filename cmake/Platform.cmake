# Target kv_platform_interface: the headers of the server's own libraries.
# Target kv_platform: what libLANProvider.so is linked with, the server's libraries or the stand-in.
add_library(kv_platform_interface INTERFACE)
if(KV_PLATFORM_INCLUDE_DIR)
  target_include_directories(kv_platform_interface SYSTEM INTERFACE ${KV_PLATFORM_INCLUDE_DIR})
else()
  target_include_directories(kv_platform_interface INTERFACE ${CMAKE_SOURCE_DIR}/interfaces/platform)
endif()

if(KV_PLATFORM_LIBRARIES)
  add_library(kv_platform INTERFACE)
  target_link_libraries(kv_platform INTERFACE kv_platform_interface ${KV_PLATFORM_LIBRARIES})
elseif(OPENWBEM_ROOT AND NOT KV_ALLOW_UNRESOLVED)
  message(FATAL_ERROR
    "KV_PLATFORM_LIBRARIES is empty. A function that the object manager's process cannot resolve keeps the library from being "
    "loaded, and OpenWBEM 3.0.3 ends at the first request to such a library. Name the server's own libraries, or set "
    "KV_ALLOW_UNRESOLVED=ON if the process brings their functions along.")
elseif(NOT OPENWBEM_ROOT AND NOT CMAKE_CROSSCOMPILING)
  add_subdirectory(${CMAKE_SOURCE_DIR}/standins/platform)
else()
  # Nothing to link: the platform functions stay undefined until the object manager's process resolves them.
  add_library(kv_platform INTERFACE)
  target_link_libraries(kv_platform INTERFACE kv_platform_interface)
endif()
