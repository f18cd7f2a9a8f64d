# A general engine, to compare with. It is no part of the program, so it is built only where its
# packages are installed (see compare.sh).
find_package(Qt6Quick3D QUIET)
if(Qt6Quick3D_FOUND)
    add_executable(quickscene_bench QuickSceneBench.cpp)
    target_link_libraries(quickscene_bench PRIVATE zelvo_options zelvo_app fmt::fmt Qt6::Quick Qt6::Quick3D Qt6::OpenGL)
    target_compile_definitions(quickscene_bench PRIVATE 
        ZELVO_QUICK_SCENE="${CMAKE_CURRENT_SOURCE_DIR}/QuickScene.qml"
        ZELVO_QUICK_PROBE="${CMAKE_SOURCE_DIR}/build/resources/StageEnvironment.jpg")
endif()
