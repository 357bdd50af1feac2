# What cmake --install and cpack deliver. Component provider: the library where the object manager looks for it, its class
# definitions, its documentation and the program that checks it. Component debug: the library's debug symbols. Component
# lanctl: the operator's client.
include(GNUInstallDirs)
set(KV_PROVIDER_DIR ${CMAKE_INSTALL_LIBDIR}/openwbem/c++providers CACHE STRING
    "Where the object manager looks for C++ providers (its configuration item cppprovifc.prov_location)")
set(KV_MOF_DIR ${CMAKE_INSTALL_DATADIR}/openwbem/mof CACHE STRING "Where the class definitions go")

set(symbols ${CMAKE_BINARY_DIR}/libLANProvider.so.debug)
add_custom_command(OUTPUT ${symbols}
  COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:LANProvider> ${symbols}
  DEPENDS LANProvider VERBATIM)
add_custom_target(LANProvider_symbols ALL DEPENDS ${symbols})

install(TARGETS LANProvider LIBRARY DESTINATION ${KV_PROVIDER_DIR} COMPONENT provider)
cmake_path(ABSOLUTE_PATH KV_PROVIDER_DIR BASE_DIRECTORY "\${CMAKE_INSTALL_PREFIX}" OUTPUT_VARIABLE provider_directory)
install(CODE "
  execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --strip-unneeded \"--add-gnu-debuglink=${symbols}\"
                          \"\$ENV{DESTDIR}${provider_directory}/libLANProvider.so\" COMMAND_ERROR_IS_FATAL ANY)"
  COMPONENT provider)
# A debugger looks into a .debug directory beside the file. The object manager does not: it takes only *.so.
install(FILES ${symbols} DESTINATION ${KV_PROVIDER_DIR}/.debug COMPONENT debug)

file(GLOB class_definitions CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/mof/*.mof)
install(FILES ${class_definitions} DESTINATION ${KV_MOF_DIR} COMPONENT provider)
install(FILES ${CMAKE_SOURCE_DIR}/docs/deployment.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/lanprovider COMPONENT provider)

install(TARGETS lanprovider-check RUNTIME COMPONENT provider)

if(BUILD_CLIENT)
  install(TARGETS lanctl RUNTIME COMPONENT lanctl)
  cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_BINDIR BASE_DIRECTORY "\${CMAKE_INSTALL_PREFIX}" OUTPUT_VARIABLE program_directory)
  install(CODE "
    execute_process(COMMAND \"${CMAKE_STRIP}\" \"\$ENV{DESTDIR}${program_directory}/lanctl\" COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT lanctl)
  install(FILES ${CMAKE_SOURCE_DIR}/client/lanctl.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT lanctl)
  install(FILES ${CMAKE_SOURCE_DIR}/client/completion/lanctl
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT lanctl)
  install(FILES ${CMAKE_SOURCE_DIR}/docs/lanctl.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/lanctl COMPONENT lanctl)
endif()

include(Packaging)
