add_executable(window_bench WindowBench.cpp)
target_link_libraries(window_bench PRIVATE zelvo_options zelvo_app fmt::fmt Qt6::Gui Qt6::Quick)
