zelvo_benchmark(usd_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/USDBench.cpp LINK zelvo_usd PkgConfig::lz4 PkgConfig::zip)
target_include_directories(usd_bench PRIVATE "${CMAKE_SOURCE_DIR}/tests")
