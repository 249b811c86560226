# How all that is shipped is protected, on every architecture: the same in a build by hand and in the packages. What an
# attacker puts where a text or a number was meant finds canaries, checked copies, tables that nobody can write any more
# and, where the processor knows such things, no place to jump to.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize") # which sees more, and does not go together with all of it
    return()
endif()

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

add_compile_options(-fstack-protector-strong)
# Checked copies need an optimiser. What a packager's flags say of them holds no longer than up to here.
set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
add_compile_options("$<${optimised}:-U_FORTIFY_SOURCE>" "$<${optimised}:-D_FORTIFY_SOURCE=2>")

# Symbols are bound when a file is loaded, and their tables are read-only from then on. A first call through the lazy
# linker would also save the processor's registers, and with them a PIN, on the stack.
add_link_options(LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    add_compile_options(-fcf-protection=full)
    # The C library's start files may lack this mark, though they return to where they were called from.
    add_link_options(LINKER:-z,shstk)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
    # Returns are signed in any case. Landing pads count where the C library's start files have them too: the linker then
    # marks the files, and to insist on the mark where they have none would end programs in their first step.
    add_compile_options(-mbranch-protection=standard)
    # What is read-only after loading ends on a page of the largest size. The linker's own largest size, 64 KiB, would
    # make the engine a third longer with padding; phones have pages of 4 and 16 KiB.
    add_link_options(LINKER:-z,max-page-size=16384)
endif()
