# What an application builds with is installed here. Every other library and program installs itself in its own folder.
# Each has a Debian package's name as its component; debian/control describes them.
include(CMakePackageConfigHelpers)
include(cmake/PlatformStub.cmake)

set(KVQ_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/kvqcallsetupengine)
set(KVQ_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KvqCallSetupEngine)
set(KVQ_STUB_DIR ${CMAKE_INSTALL_LIBDIR}/kvqcallsetupengine)

# The engine, and what applications build with.
install(TARGETS kvqcallsetupengine EXPORT KvqCallSetupEngineTargets
    LIBRARY COMPONENT libkvqcallsetupengine1 NAMELINK_COMPONENT libkvqcallsetupengine-dev
    INCLUDES DESTINATION ${KVQ_INCLUDE_DIR})
install(DIRECTORY include/ DESTINATION ${KVQ_INCLUDE_DIR}
    COMPONENT libkvqcallsetupengine-dev FILES_MATCHING PATTERN "*.h")
foreach(header LogModule TAPI_ACCE TAPI_CALL TAPI_CS TAPI_NETWORK TAPI_RESULT TAPI_SECURITY TAPI_USSD TAPI_VOICE)
    install(FILES platform/${header}.h DESTINATION ${KVQ_INCLUDE_DIR} COMPONENT libkvqcallsetupengine-dev)
endforeach()

# The platform's stand-in for the linker. An application that names nothing of the platform does not depend on it.
install(TARGETS kvqplatform_stub
    LIBRARY DESTINATION ${KVQ_STUB_DIR} COMPONENT libkvqcallsetupengine-dev)
set(KVQ_STUB_LIBS -Wl,--push-state,--as-needed,-lkvqplatform,--pop-state)
# Its folder is an option: link directories end up in the run path of what is built, and nobody may load it.
target_link_options(kvqcallsetupengine INTERFACE
    $<INSTALL_INTERFACE:-L$<INSTALL_PREFIX>/${KVQ_STUB_DIR}>
    $<INSTALL_INTERFACE:LINKER:-rpath-link,$<INSTALL_PREFIX>/${KVQ_STUB_DIR}>)
target_link_libraries(kvqcallsetupengine INTERFACE $<INSTALL_INTERFACE:${KVQ_STUB_LIBS}>)

install(EXPORT KvqCallSetupEngineTargets NAMESPACE Kvq:: DESTINATION ${KVQ_CMAKE_DIR}
    COMPONENT libkvqcallsetupengine-dev)
configure_package_config_file(cmake/KvqCallSetupEngineConfig.cmake.in
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake INSTALL_DESTINATION ${KVQ_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    DESTINATION ${KVQ_CMAKE_DIR} COMPONENT libkvqcallsetupengine-dev)

# The package can be moved: the prefix is where the file stands.
file(RELATIVE_PATH KVQ_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/kvqcallsetupengine.pc.in ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT libkvqcallsetupengine-dev)

# The packages that this build holds, for those who read a list, and all that debian/rules has to know of a build folder.
get_cmake_property(packages COMPONENTS)
list(JOIN packages "\n" lines)
file(WRITE ${PROJECT_BINARY_DIR}/packages.txt "${lines}\n")
list(JOIN packages " " packages)
cmake_path(GET KVQ_PLATFORM_LIBRARY PARENT_PATH library_folders)
set(sysroot_options)
if(KVQ_DEBIAN_ARCHITECTURE) # a cross build's libraries are those of its sysroot, which tells what packages they come from
    set(library_folders "${KVQ_SYSROOT}/usr/lib/$(DEB_HOST_MULTIARCH):${KVQ_SYSROOT}/lib/$(DEB_HOST_MULTIARCH)")
    set(sysroot_options "-- -L${KVQ_SYSROOT}/shlibs")
endif()
file(WRITE ${PROJECT_BINARY_DIR}/packaging.mk "qt := ${KVQ_QT_MAJOR}
packages := ${packages}
library_folders := ${library_folders}
sysroot_options := ${sysroot_options}
")

install(SCRIPT cmake/SystemRunPath.cmake ALL_COMPONENTS) # last, when all is in its place
