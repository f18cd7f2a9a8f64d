zelvo_benchmark(pick_bench SOURCES PickBench.cpp LINK zelvo_ui_layouter)
