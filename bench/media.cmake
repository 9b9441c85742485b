# 100 generated clips through the probe on a pool of two threads, against
# the two ffmpeg commands per file run one after another in the same run.
add_executable(bench_media ${CMAKE_CURRENT_LIST_DIR}/media/bench_media.cpp)
target_link_libraries(bench_media PRIVATE quorvel_media Qt6::Gui Qt6::Concurrent)
