zelvo_benchmark(tint_bench SOURCES TintBench.cpp LINK zelvo_environments Qt6::Core)
