zelvo_benchmark(tint_bench SOURCES TintBench.cpp ApplicationMain.cpp LINK zelvo_environments Qt6::Core)
