# Builds for 32-bit ARM with hardware floating point (ARMv7) on a machine of another kind.
set(KVQ_DEBIAN_ARCHITECTURE armhf)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(KVQ_TRIPLET arm-linux-gnueabihf)
# The compiler tells at each such call that GCC 7 changed how it is made; nothing here is older.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
set(KVQ_EMULATOR qemu-arm CACHE STRING "Runs what is built")
include(${CMAKE_CURRENT_LIST_DIR}/debian-sysroot.cmake)
