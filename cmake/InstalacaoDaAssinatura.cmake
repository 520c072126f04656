# libcotepe-sign and its header, if OpenSSL is found.
install(FILES Sources/Assinatura/cotepe-sign.h DESTINATION ${cotepe_cabecalhos} COMPONENT desenvolvimento)
install(TARGETS cotepe_sign_compartilhada EXPORT cotepe
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT assinatura NAMELINK_COMPONENT desenvolvimento
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT assinatura
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT desenvolvimento
  INCLUDES DESTINATION ${cotepe_cabecalhos})
set(cotepe_pc_da_assinatura cotepe-sign.pc)
