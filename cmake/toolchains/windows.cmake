# Shared by the toolchains for Windows. COTEPE_RAIZ: the folder with SQLite and the headers of the program's libraries.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES COTEPE_RAIZ)
if(NOT DEFINED COTEPE_RAIZ)
  get_filename_component(COTEPE_RAIZ "${CMAKE_CURRENT_LIST_DIR}/../../build/windows/raiz/${COTEPE_TRIPLA}" ABSOLUTE)
endif()

set(CMAKE_C_COMPILER ${COTEPE_TRIPLA}-gcc-posix)
set(CMAKE_CXX_COMPILER ${COTEPE_TRIPLA}-g++-posix)
set(CMAKE_RC_COMPILER ${COTEPE_TRIPLA}-windres)
set(CMAKE_FIND_ROOT_PATH ${COTEPE_RAIZ} /usr/${COTEPE_TRIPLA})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A program is one file: the compiler's libraries are linked into it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
find_program(COTEPE_WINE NAMES wine)
if(COTEPE_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${COTEPE_WINE})
endif()
