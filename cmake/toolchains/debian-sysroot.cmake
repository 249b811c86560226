# What the toolchain files share: Debian's cross compiler, and a sysroot of packages of the other architecture
# (scripts/sysroot.sh makes it). The machine itself needs no foreign package, so nothing on it can be in conflict.
set(CMAKE_SYSTEM_NAME Linux)
set(KVQ_DEBIAN_ARCHITECTURE ${KVQ_DEBIAN_ARCHITECTURE} CACHE STRING "Architecture of the Debian packages" FORCE)
cmake_path(SET sysroot NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot/${KVQ_DEBIAN_ARCHITECTURE})
set(KVQ_SYSROOT ${sysroot} CACHE PATH "Folder with the packages of the other architecture")
get_filename_component(CMAKE_SYSROOT ${KVQ_SYSROOT} REALPATH)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KVQ_SYSROOT)
if(NOT EXISTS ${CMAKE_SYSROOT}/usr/include)
    message(FATAL_ERROR "There is no sysroot in ${KVQ_SYSROOT}: run scripts/sysroot.sh ${KVQ_DEBIAN_ARCHITECTURE}")
endif()

set(CMAKE_CXX_COMPILER ${KVQ_TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${KVQ_TRIPLET})
set(CMAKE_INSTALL_LIBDIR lib/${KVQ_TRIPLET} CACHE PATH "Folder of libraries below the prefix")
set(CMAKE_FIND_ROOT_PATH ${CMAKE_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${KVQ_TRIPLET}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)

# The toolkit's own tools (moc, lrelease) run here and come from this machine's packages.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake)
set(Qt6LinguistTools_DIR ${QT_HOST_PATH_CMAKE_DIR}/Qt6LinguistTools)

# What is built runs under the emulator, with the sysroot's loader and libraries. The toolkit has to be told where its
# own folders are, for the emulator does not redirect every look at a file.
set(qt_folder ${CMAKE_SYSROOT}/usr/lib/${KVQ_TRIPLET}/qt6)
set(CMAKE_CROSSCOMPILING_EMULATOR ${KVQ_EMULATOR} -L ${CMAKE_SYSROOT}
    -E QT_PLUGIN_PATH=${qt_folder}/plugins -E QML2_IMPORT_PATH=${qt_folder}/qml)
