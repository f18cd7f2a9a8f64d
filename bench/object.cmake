zelvo_benchmark(object_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/ObjectBench.cpp LINK zelvo_object_reading fmt::fmt)
