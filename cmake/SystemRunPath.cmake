# Run by `cmake --install`. Libraries below /usr are found by their names, and a package must not bring a run path.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    return()
endif()
foreach(file IN LISTS CMAKE_INSTALL_MANIFEST_FILES)
    if(file MATCHES "/bin/kvq-[^/]*$|/libkvq[^/]*\\.so[.0-9]*$")
        file(RPATH_REMOVE FILE "$ENV{DESTDIR}${file}")
    endif()
endforeach()
