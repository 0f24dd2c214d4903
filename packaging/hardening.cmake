# What makes a program that is given away hard to misuse, and the same wherever it is built. Release builds alone: the
# others are for looking into. packaging/hardened tells of a finished program whether all of it is there.

if(NOT CMAKE_BUILD_TYPE STREQUAL "Release" OR PANEL_SANITIZE)
    return()
endif()

include(CheckPIESupported)
check_pie_supported(OUTPUT_VARIABLE refusal LANGUAGES CXX)
if(NOT CMAKE_CXX_LINK_PIE_SUPPORTED)
    message(WARNING "The programs will stand at fixed addresses: ${refusal}")
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# _FORTIFY_SOURCE is taken away first: some compilers set a level of their own, and a second one is a warning.
# Names of folders, in messages and in debug symbols, begin at the checkout and at the build folder.
add_compile_options(-g1 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=." "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
foreach(flag IN ITEMS -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "takes${flag}" takes)
    check_cxx_compiler_flag(${flag} ${takes})
    if(${takes})
        add_compile_options(${flag})
    endif()
endforeach()
foreach(flag IN ITEMS -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack -Wl,--build-id=sha1)
    string(MAKE_C_IDENTIFIER "links${flag}" takes)
    check_linker_flag(CXX ${flag} ${takes})
    if(${takes})
        add_link_options(${flag})
    endif()
endforeach()
