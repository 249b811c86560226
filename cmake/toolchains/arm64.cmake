# Builds for 64-bit ARM on a machine of another kind.
set(KVQ_DEBIAN_ARCHITECTURE arm64)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(KVQ_TRIPLET aarch64-linux-gnu)
set(KVQ_EMULATOR qemu-aarch64 CACHE STRING "Runs what is built")
include(${CMAKE_CURRENT_LIST_DIR}/debian-sysroot.cmake)
