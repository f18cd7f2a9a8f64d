add_executable(font_list_bench FontListBench.cpp)
target_link_libraries(font_list_bench PRIVATE zelvo_options zelvo_app zelvo_ui_qml fmt::fmt Qt6::Gui Qt6::Quick)
