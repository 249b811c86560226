# Debian packages of a cross build: the architecture is that of the toolchain file, and what a package depends on is
# looked up in the sysroot rather than among the packages of this machine.
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${KVQ_DEBIAN_ARCHITECTURE})
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/CrossPackages.cmake)
file(WRITE ${CPACK_PROJECT_CONFIG_FILE} "set(SHLIBDEPS_EXECUTABLE ${PROJECT_BINARY_DIR}/dpkg-shlibdeps)\n")
file(CONFIGURE OUTPUT dpkg-shlibdeps @ONLY CONTENT [[#!/bin/sh
exec env DEB_HOST_ARCH=@KVQ_DEBIAN_ARCHITECTURE@ dpkg-shlibdeps -L'@CMAKE_SYSROOT@/shlibs' \
    -l'@CMAKE_SYSROOT@/usr/lib/@KVQ_TRIPLET@' -l'@CMAKE_SYSROOT@/lib/@KVQ_TRIPLET@' "$@"
]])
file(CHMOD ${PROJECT_BINARY_DIR}/dpkg-shlibdeps
    PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
