pkg_check_modules(swscale REQUIRED IMPORTED_TARGET libswscale libavutil)
zelvo_benchmark(media_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/MediaBench.cpp LINK zelvo_media PkgConfig::swscale)
