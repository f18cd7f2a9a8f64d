zelvo_benchmark(form_bench SOURCES FormBench.cpp ApplicationMain.cpp LINK zelvo_content Qt6::Core)
