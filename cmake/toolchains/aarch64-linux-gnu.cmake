# 64-bit Arm: Debian's cross compiler, and the target's libraries as scripts/cross installs them.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(COTEPE_TRIPLA aarch64-linux-gnu)
set(COTEPE_QEMU qemu-aarch64-static)
include(${CMAKE_CURRENT_LIST_DIR}/comum.cmake)
