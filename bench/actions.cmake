zelvo_benchmark(actions_bench SOURCES ActionsBench.cpp LINK zelvo_scene)
zelvo_benchmark(tick_bench SOURCES TickBench.cpp LINK zelvo_model)
zelvo_benchmark(scrub_bench SOURCES ScrubBench.cpp LINK zelvo_engine zelvo_document)
