zelvo_benchmark(media_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/MediaBench.cpp LINK zelvo_media)
