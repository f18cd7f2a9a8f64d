if(TARGET zelvo_media_fixture) # it makes the songs
    zelvo_benchmark(waveform_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/WaveformBench.cpp LINK zelvo_sound
                    zelvo_media_fixture Qt6::Core)
    target_include_directories(waveform_bench PRIVATE "${CMAKE_SOURCE_DIR}/tests")
endif()
