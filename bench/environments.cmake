zelvo_benchmark(environments_bench SOURCES EnvironmentsBench.cpp LINK zelvo_app PkgConfig::epoxy)
