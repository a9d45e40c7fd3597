# The tools that build for Windows from another system, and where they look for libraries: those of
# the distribution, and those that tools/windows-libraries has built.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
# Of the two kinds of threads the compiler comes with, the one that std::thread works with.
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# Of a library that has both, the one without a DLL.
set(ZLIB_USE_STATIC_LIBS ON)

set(libraries ${CMAKE_CURRENT_LIST_DIR}/../build/windows/libraries)
# Headers that no description of a package names.
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${libraries}/include)
set(CMAKE_FIND_ROOT_PATH ${libraries} /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${libraries}/lib/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "")
