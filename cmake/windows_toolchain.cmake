# 32-bit Windows, cross-built: the compiler, the libraries that tools/windows_toolchain made, and Wine to run it all.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

cmake_path(SET windows_libraries NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../build/windows-toolchain)
if(NOT EXISTS ${windows_libraries})
  message(FATAL_ERROR "the libraries for Windows are missing: run tools/windows_toolchain")
endif()
file(REAL_PATH ${windows_libraries} real_windows_libraries)
set(CMAKE_FIND_ROOT_PATH ${windows_libraries} ${real_windows_libraries} /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${windows_libraries}/lib/pkgconfig)
set(wxWidgets_CONFIG_EXECUTABLE ${windows_libraries}/bin/wx-config CACHE FILEPATH "")

# Windows 7 is the oldest that everything has to run on; nothing but what it has is loaded.
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN -DSODIUM_STATIC")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -s")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -s")

cmake_path(SET wine NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../tools/wine)
set(CMAKE_CROSSCOMPILING_EMULATOR ${wine})
