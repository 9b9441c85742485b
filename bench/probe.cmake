# Adding 100 clips: the probe on two threads against the two tools run one
# after another, and how long the event loop is kept waiting meanwhile.
add_executable(bench_probe ${CMAKE_CURRENT_LIST_DIR}/probe/bench_probe.cpp)
target_link_libraries(bench_probe PRIVATE quorvel_core quorvel_test_support Qt6::Widgets)
add_dependencies(bench_probe quorvel_data)
