# Shared by the toolchains here. COTEPE_RAIZ: the folder with the target's usr/, build/raiz/<triple> by default.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES COTEPE_RAIZ)
if(NOT DEFINED COTEPE_RAIZ)
  get_filename_component(COTEPE_RAIZ "${CMAKE_CURRENT_LIST_DIR}/../../build/raiz/${COTEPE_TRIPLA}" ABSOLUTE)
endif()

set(CMAKE_C_COMPILER ${COTEPE_TRIPLA}-gcc)
set(CMAKE_CXX_COMPILER ${COTEPE_TRIPLA}-g++)
string(REPLACE i686 i386 CMAKE_LIBRARY_ARCHITECTURE ${COTEPE_TRIPLA})
set(CMAKE_FIND_ROOT_PATH ${COTEPE_RAIZ} /usr/${COTEPE_TRIPLA})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What is built runs here under emulation, with the compiler's own C library and the target's other ones.
find_program(qemu ${COTEPE_QEMU})
if(qemu)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${qemu};-L;/usr/${COTEPE_TRIPLA};-E;LD_LIBRARY_PATH=${COTEPE_RAIZ}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}:/usr/${COTEPE_TRIPLA}/lib)
endif()
