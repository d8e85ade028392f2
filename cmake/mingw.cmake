# Builds for 64-bit Windows with Debian's mingw-w64: the posix variant, because std::thread needs it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Headers and libraries of this machine must not be found. Who builds with a library adds its folder to the list.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 10 is the oldest supported system. No file asks for it except the headers of mingw-w64.
# Jumps and returns are protected, as far as the compiler can.
set(PLIMO_MINGW_FLAGS -D_WIN32_WINNT=0x0A00 -DWINVER=0x0A00 -DNTDDI_VERSION=0x0A000006 -DUNICODE -D_UNICODE
                      -fcf-protection=full -fstack-protector-strong)
foreach(language C CXX)
  list(JOIN PLIMO_MINGW_FLAGS " " CMAKE_${language}_FLAGS_INIT)
endforeach()

# The runtime libraries of the compiler become part of the program.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/with-wine)

# Qt's own tools are those of this machine.
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "The CMake files of this machine's Qt")
