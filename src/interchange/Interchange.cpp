// The interchange library: its parts are listed in sdif.cmake and nv3.cmake.
