# 32-bit Arm (hard float): Debian's cross compiler, and the target's libraries as scripts/cross installs them.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(COTEPE_TRIPLA arm-linux-gnueabihf)
set(COTEPE_QEMU qemu-arm-static)
include(${CMAKE_CURRENT_LIST_DIR}/comum.cmake)
