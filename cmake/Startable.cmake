# How one program starts another program of this build: by its file or, where the build is for a machine of another
# kind, by a script that starts it under the emulator.
#
# kvq_startable(VARIABLE TARGET)
function(kvq_startable variable target)
    if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
        set(${variable} $<TARGET_FILE:${target}> PARENT_SCOPE)
        return()
    endif()
    set(script ${CMAKE_CURRENT_BINARY_DIR}/start-${target})
    string(JOIN "' '" command ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${target}>)
    file(GENERATE OUTPUT ${script} CONTENT "#!/bin/sh\nexec '${command}' \"$@\"\n"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set(${variable} ${script} PARENT_SCOPE)
endfunction()
