# What Debian wants beside the installed files, in the staged folder of each component: copyright, changelog,
# and compressed manual pages.
string(TIMESTAMP agora "%a, %d %b %Y %H:%M:%S +0000" UTC)

foreach(componente BIBLIOTECA DESENVOLVIMENTO PROGRAMA)
  string(TOLOWER ${componente} pasta)
  set(pacote ${CPACK_DEBIAN_${componente}_PACKAGE_NAME})
  set(raiz ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${pasta}/usr/share)
  set(documentos ${raiz}/doc/${pacote})
  file(MAKE_DIRECTORY ${documentos})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${documentos}/copyright COPYONLY)
  file(WRITE ${documentos}/changelog.Debian
    "cotepe (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium\n\n"
    "  * Built from the project's own tree; see its CHANGELOG.md.\n\n"
    " -- ${CPACK_PACKAGE_CONTACT}  ${agora}\n")
  # These packages are not uploaded to the archive; and CPack writes the scripts of a library itself.
  file(WRITE ${raiz}/lintian/overrides/${pacote} "${pacote}: initial-upload-closes-no-bugs\n")
  if(componente STREQUAL "BIBLIOTECA")
    file(APPEND ${raiz}/lintian/overrides/${pacote} "${pacote}: maintscript-calls-ldconfig\n")
  endif()
  file(GLOB paginas ${raiz}/man/man1/*.1)
  execute_process(COMMAND gzip -9n ${paginas} ${documentos}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE comprimidos ${raiz}/man/*.gz ${raiz}/lintian/* ${documentos}/*)
  foreach(arquivo ${comprimidos})
    file(CHMOD ${arquivo} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endforeach()
endforeach()
