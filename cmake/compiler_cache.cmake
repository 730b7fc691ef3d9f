# The compiler cache, if there is one. Checkouts share its results, so paths in a checkout count by their place in it.
# Precompiled headers are cached only if the cache may ignore macros defined in them and the age of new files, and hashed
# once a build instead of once a source with the inode cache. Messages are in English in every locale.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_HOST_WIN32)
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 CCACHE_INODECACHE=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime,locale ${CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
endif()
