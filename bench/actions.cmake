zelvo_benchmark(actions_bench SOURCES ActionsBench.cpp LINK zelvo_scene)
zelvo_benchmark(tick_bench SOURCES TickBench.cpp LINK zelvo_model)
