# What cmake --install installs: headers, both libraries, the package for find_package and for pkg-config, and
# the program where it is built.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(cotepe_cabecalhos ${CMAKE_INSTALL_INCLUDEDIR}/cotepe)
set(cotepe_pacote ${CMAKE_INSTALL_LIBDIR}/cmake/cotepe)

install(FILES Sources/InterfaceC/cotepe.h Sources/CotepeManager/CotepeManager.h Sources/CotepeManager/Geracao.h
  Sources/CotepeManager/Hospedeiro.h
  libs/BigInt/BigInt.h libs/Financial/Financial.h
  DESTINATION ${cotepe_cabecalhos} COMPONENT desenvolvimento)
# In a separate folder, so that the class is never compiled with these when the application forgot its own.
install(FILES Host/ArquivoDeLog.h Host/GravaLog.h Host/Identidade.h Host/PreencheComChar.h Host/RtcClasses.h
  DESTINATION ${cotepe_cabecalhos}/host COMPONENT desenvolvimento)
install(FILES Sources/CotepeManager/CotepeManagerLigado.cpp
  DESTINATION ${CMAKE_INSTALL_DATADIR}/cotepe COMPONENT desenvolvimento)
install(DIRECTORY bindings DESTINATION ${CMAKE_INSTALL_DATADIR}/cotepe COMPONENT desenvolvimento
  PATTERN __pycache__ EXCLUDE PATTERN .pytest_cache EXCLUDE)

set_target_properties(Host PROPERTIES OUTPUT_NAME cotepe_host)
target_include_directories(Host INTERFACE $<INSTALL_INTERFACE:${cotepe_cabecalhos}/host>)
target_compile_features(Host INTERFACE cxx_std_11)
install(TARGETS cotepe_compartilhada cotepe_estatica Host EXPORT cotepe
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT biblioteca NAMELINK_COMPONENT desenvolvimento
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT desenvolvimento
  INCLUDES DESTINATION ${cotepe_cabecalhos})
if(COTEPE_SIGN)
  include(cmake/InstalacaoDaAssinatura.cmake)
endif()
install(EXPORT cotepe FILE cotepeTargets.cmake NAMESPACE cotepe:: DESTINATION ${cotepe_pacote}
  COMPONENT desenvolvimento)

configure_package_config_file(cmake/cotepeConfig.cmake.in cotepeConfig.cmake INSTALL_DESTINATION ${cotepe_pacote})
# While the major version is 0, a minor version may break the source of hosts.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(cotepe_compativel SameMinorVersion)
else()
  set(cotepe_compativel SameMajorVersion)
endif()
write_basic_package_version_file(cotepeConfigVersion.cmake COMPATIBILITY ${cotepe_compativel})
install(FILES ${PROJECT_BINARY_DIR}/cotepeConfig.cmake ${PROJECT_BINARY_DIR}/cotepeConfigVersion.cmake
  DESTINATION ${cotepe_pacote} COMPONENT desenvolvimento)

# The package can be relocated: its files find the prefix from their own location.
file(RELATIVE_PATH cotepe_da_pasta_pc /prefixo/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefixo)
string(REGEX REPLACE "/$" "" cotepe_da_pasta_pc ${cotepe_da_pasta_pc})
foreach(pc cotepe.pc cotepe-static.pc cotepe-host.pc ${cotepe_pc_da_assinatura})
  configure_file(cmake/${pc}.in ${pc} @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pc} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT desenvolvimento)
endforeach()

if(COTEPE_TOOLS)
  install(TARGETS cotepe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programa)
  if(COTEPE_CATALOGO)
    install(FILES ${COTEPE_CATALOGO} DESTINATION ${CMAKE_INSTALL_LOCALEDIR}/pt_BR/LC_MESSAGES COMPONENT programa)
  endif()
  install(DIRECTORY ${COTEPE_MANUAIS}/man1 DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT programa)
  install(FILES ${COTEPE_MANUAIS}/bash/cotepe DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    COMPONENT programa)
  install(FILES ${COTEPE_MANUAIS}/zsh/_cotepe DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    COMPONENT programa)
  install(FILES ${COTEPE_MANUAIS}/fish/cotepe.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT programa)
endif()
