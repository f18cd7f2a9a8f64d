zelvo_benchmark(actions_bench SOURCES ActionsBench.cpp LINK zelvo_scene)
