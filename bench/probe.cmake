# How long the event loop waits while 100 clips go into the playlist.
add_executable(bench_probe ${CMAKE_CURRENT_LIST_DIR}/probe/bench_probe.cpp)
target_link_libraries(bench_probe PRIVATE quorvel_core quorvel_test_support Qt6::Widgets)
add_dependencies(bench_probe quorvel_data)
