if(TARGET zelvo_media_fixture) # it makes the video
    zelvo_benchmark(video_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/VideoBench.cpp LINK zelvo_content zelvo_render
                    zelvo_media_fixture)
    target_include_directories(video_bench PRIVATE "${CMAKE_SOURCE_DIR}/tests")
endif()
