# What Debian requires besides the installed files, in the staged folder of each component: copyright, changelogs,
# compressed manual pages, and documents and examples for developers; libraries stripped; and one time for all.
string(TIMESTAMP agora "%a, %d %b %Y %H:%M:%S +0000" UTC)

foreach(componente BIBLIOTECA ASSINATURA DESENVOLVIMENTO PROGRAMA)
  string(TOLOWER ${componente} pasta)
  set(pacote ${CPACK_DEBIAN_${componente}_PACKAGE_NAME})
  if(NOT IS_DIRECTORY ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${pasta})
    continue()  # not built
  endif()
  set(raiz ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${pasta}/usr/share)
  set(documentos ${raiz}/doc/${pacote})
  file(MAKE_DIRECTORY ${documentos})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${documentos}/copyright COPYONLY)
  configure_file(${CPACK_COTEPE_FONTES}/CHANGELOG.md ${documentos}/changelog COPYONLY)
  file(WRITE ${documentos}/changelog.Debian
    "cotepe (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium\n\n"
    "  * Built from the project's own tree; see its CHANGELOG.md.\n\n"
    " -- ${CPACK_PACKAGE_CONTACT}  ${agora}\n")
  # These packages are not uploaded to the archive; and CPack itself writes the maintainer scripts of a library.
  file(WRITE ${raiz}/lintian/overrides/${pacote} "${pacote}: initial-upload-closes-no-bugs\n")
  if(componente MATCHES "BIBLIOTECA|ASSINATURA")
    file(APPEND ${raiz}/lintian/overrides/${pacote} "${pacote}: maintscript-calls-ldconfig\n")
  endif()
  file(GLOB paginas ${raiz}/man/man1/*.1)
  execute_process(COMMAND gzip -9n ${paginas} ${documentos}/changelog ${documentos}/changelog.Debian
    COMMAND_ERROR_IS_FATAL ANY)
  if(componente STREQUAL "DESENVOLVIMENTO")
    file(COPY ${CPACK_COTEPE_FONTES}/docs/embedding.md ${CPACK_COTEPE_FONTES}/docs/delivery.md
      ${CPACK_COTEPE_FONTES}/docs/registros.md ${CPACK_COTEPE_FONTES}/docs/glossary.md
      DESTINATION ${documentos})
    file(COPY ${CPACK_COTEPE_FONTES}/examples DESTINATION ${documentos})
  endif()

  file(GLOB_RECURSE estaticas ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${pasta}/usr/lib/*.a)
  foreach(biblioteca ${estaticas})
    execute_process(COMMAND strip --strip-debug --remove-section=.comment --remove-section=.note
      --enable-deterministic-archives ${biblioteca} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  file(GLOB_RECURSE compostos ${raiz}/man/*.gz ${raiz}/lintian/* ${documentos}/*)
  foreach(arquivo ${compostos})
    if(arquivo MATCHES "\\.(sh|py)$")
      file(CHMOD ${arquivo} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    else()
      file(CHMOD ${arquivo} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    endif()
  endforeach()
  if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${pasta} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
