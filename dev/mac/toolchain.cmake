# For CMake on Debian: the tools that build for macOS, as dev/mac_bundle has laid them out in CHROMALOG_MAC_TOOLS
# (bin: the compiler's driver; root: headers, packages and text stubs of libraries). One of arm64 and x86_64 at a time.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 20) # of the kernel: macOS 11
if(DEFINED CACHE{CHROMALOG_MAC_TOOLS})
  set(ENV{CHROMALOG_MAC_TOOLS} ${CHROMALOG_MAC_TOOLS}) # for the projects that try the compiler
endif()
set(tools $ENV{CHROMALOG_MAC_TOOLS})

set(CMAKE_C_COMPILER ${tools}/bin/cc)
set(CMAKE_CXX_COMPILER ${tools}/bin/c++)
set(CMAKE_AR /usr/bin/llvm-ar-14)
set(CMAKE_RANLIB /usr/bin/llvm-ranlib-14)
set(CMAKE_INSTALL_NAME_TOOL /usr/bin/llvm-install-name-tool-14)
set(CMAKE_OSX_SYSROOT "")

set(CMAKE_FIND_ROOT_PATH ${tools}/root)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
