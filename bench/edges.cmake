zelvo_benchmark(edges_bench SOURCES EdgesBench.cpp LINK zelvo_app)
