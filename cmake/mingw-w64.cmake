# What both MinGW-w64 toolchain files share; TESSIK_MINGW_TRIPLET names the target.
set(CMAKE_C_COMPILER ${TESSIK_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TESSIK_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${TESSIK_MINGW_TRIPLET}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${TESSIK_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The programs run under Wine without the compiler's own DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++ -static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++ -static")
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
