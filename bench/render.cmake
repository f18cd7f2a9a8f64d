zelvo_benchmark(render_bench SOURCES RenderBench.cpp LINK zelvo_render zelvo_scene)
zelvo_benchmark(technique_bench SOURCES TechniqueBench.cpp LINK zelvo_render zelvo_scene)
