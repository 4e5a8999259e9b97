find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # What ccache wants to be told before it takes precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${CCACHE_PROGRAM})
endif()
