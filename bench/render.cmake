zelvo_benchmark(render_bench SOURCES RenderBench.cpp LINK zelvo_render zelvo_scene)
