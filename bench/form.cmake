zelvo_benchmark(form_bench SOURCES FormBench.cpp LINK zelvo_content Qt6::Core)
