# Builds for 32-bit ARM with hardware floating point (ARMv7) on a machine of another kind.
set(KVQ_DEBIAN_ARCHITECTURE armhf)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(KVQ_TRIPLET arm-linux-gnueabihf)
set(KVQ_EMULATOR qemu-arm CACHE STRING "Runs what is built")
include(${CMAKE_CURRENT_LIST_DIR}/debian-sysroot.cmake)
