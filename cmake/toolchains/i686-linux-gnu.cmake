# 32-bit x86: Debian's cross compiler, and the target's libraries as scripts/cross installs them.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(COTEPE_TRIPLA i686-linux-gnu)
set(COTEPE_QEMU qemu-i386-static)
# The x87 unit would round twice; every processor of this kind since 2001 has SSE2.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/comum.cmake)
