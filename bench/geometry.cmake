zelvo_benchmark(geometry_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/GeometryBench.cpp LINK zelvo_text)
