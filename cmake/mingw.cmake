set(CMAKE_C_COMPILER ${nux_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${nux_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${nux_triple}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${nux_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Each test gets a copy of a Wine prefix that is made before the first one.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../wine/run ${CMAKE_BINARY_DIR}/prefix)
