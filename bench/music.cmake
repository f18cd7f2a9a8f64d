add_executable(music_bench MusicBench.cpp)
target_link_libraries(music_bench PRIVATE zelvo_options zelvo_app zelvo_ui_qml PkgConfig::taglib fmt::fmt Qt6::Gui Qt6::Quick)
