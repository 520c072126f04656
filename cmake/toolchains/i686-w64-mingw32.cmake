# Windows on 32-bit x86: Debian's MinGW-w64, and the libraries that scripts/windows makes.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(COTEPE_TRIPLA i686-w64-mingw32)
# The x87 unit would round twice; every processor of this kind since 2001 has SSE2.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
