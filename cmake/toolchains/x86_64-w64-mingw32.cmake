# Windows on 64-bit x86: Debian's MinGW-w64, and the libraries that scripts/windows makes.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(COTEPE_TRIPLA x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
