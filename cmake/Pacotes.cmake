# Debian packages of what is installed: libcotepe<SOVERSION>, libcotepe-sign<SOVERSION> where it is built, libcotepe-dev
# and cotepe. scripts/deb makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME cotepe)
set(CPACK_PACKAGE_VENDOR cotepe)
# The maintainer of the packages. By default they are a local build, which has none.
set(COTEPE_PACOTE_CONTATO "Local build of cotepe <nobody@cotepe.invalid>" CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGE_CONTACT "${COTEPE_PACOTE_CONTATO}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL biblioteca desenvolvimento)
if(COTEPE_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL programa)
endif()
if(COTEPE_SIGN)
  list(APPEND CPACK_COMPONENTS_ALL assinatura)
endif()
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COTEPE_FONTES ${PROJECT_SOURCE_DIR})
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/Documentos.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(cotepe_descricao "Generates the fixed-width text file by which the Ato COTEPE/ICMS 17/04 wants
the memories of a Brazilian fiscal printer (ECF) handed to the tax authority,
from the SQLite database in which the printer's application keeps them.")

set(cotepe_biblioteca_deb libcotepe${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_NAME ${cotepe_biblioteca_deb})
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers
  ${PROJECT_SOURCE_DIR}/cmake/debian/symbols)
set(CPACK_DEBIAN_BIBLIOTECA_DESCRIPTION "${cotepe_descricao}\n.\nThis is the library for applications in C and what calls C.")

# Apart, for the other library needs no OpenSSL.
if(COTEPE_SIGN)
  set(cotepe_assinatura_deb libcotepe-sign${PROJECT_VERSION_MAJOR})
  set(CPACK_DEBIAN_ASSINATURA_PACKAGE_NAME ${cotepe_assinatura_deb})
  set(CPACK_DEBIAN_ASSINATURA_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_ASSINATURA_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_ASSINATURA_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers
    ${PROJECT_SOURCE_DIR}/cmake/debian/assinatura/symbols)
  set(CPACK_DEBIAN_ASSINATURA_DESCRIPTION "${cotepe_descricao}\n.\nThis is the library that signs such files as they are handed in, and verifies\ntheir signatures.")
  set(cotepe_dev_da_assinatura ", ${cotepe_assinatura_deb} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), libssl-dev")
endif()

set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_NAME libcotepe-dev)
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_DEPENDS
  "${cotepe_biblioteca_deb} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})${cotepe_dev_da_assinatura}, libsqlite3-dev")
set(CPACK_DEBIAN_DESENVOLVIMENTO_DESCRIPTION "${cotepe_descricao}\n.\nThese are the headers, the static libraries, and the files for CMake and\npkg-config.")

set(CPACK_DEBIAN_PROGRAMA_PACKAGE_NAME cotepe)
set(CPACK_DEBIAN_PROGRAMA_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAMA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMA_DESCRIPTION "${cotepe_descricao}\n.\nThis is the program, which also checks databases and reports, shows and\ncompares them.")

include(CPack)
