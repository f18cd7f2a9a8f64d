zelvo_benchmark(render_bench SOURCES RenderBench.cpp LINK zelvo_render zelvo_scene fmt::fmt)
zelvo_benchmark(technique_bench SOURCES TechniqueBench.cpp LINK zelvo_render zelvo_scene)
