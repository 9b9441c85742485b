# Start-up and first play of the program against a bare libVLC program.
add_executable(bench_bare_vlc ${CMAKE_CURRENT_LIST_DIR}/startup/bare_vlc.cpp)
target_link_libraries(bench_bare_vlc PRIVATE quorvel_common Qt6::Widgets PkgConfig::LIBVLC)

add_executable(bench_startup ${CMAKE_CURRENT_LIST_DIR}/startup/bench_startup.cpp)
target_link_libraries(bench_startup PRIVATE quorvel_test_support Qt6::Widgets)
target_compile_definitions(bench_startup PRIVATE
    BARE_VLC_PATH="$<TARGET_FILE:bench_bare_vlc>")
add_dependencies(bench_startup bench_bare_vlc quorvel quorvel_data)

# CPU time of 20 s of 720p playback against the bare libVLC program.
add_executable(bench_playback_cpu ${CMAKE_CURRENT_LIST_DIR}/startup/bench_playback_cpu.cpp)
target_link_libraries(bench_playback_cpu PRIVATE quorvel_test_support Qt6::Widgets)
target_compile_definitions(bench_playback_cpu PRIVATE BARE_VLC_PATH="$<TARGET_FILE:bench_bare_vlc>")
add_dependencies(bench_playback_cpu bench_bare_vlc quorvel quorvel_data)

# A later start handing a file over, against a bare Qt core program.
add_executable(bench_bare_qt ${CMAKE_CURRENT_LIST_DIR}/startup/bare_qt.cpp)
target_link_libraries(bench_bare_qt PRIVATE Qt6::Core)

add_executable(bench_handoff ${CMAKE_CURRENT_LIST_DIR}/startup/bench_handoff.cpp)
target_link_libraries(bench_handoff PRIVATE quorvel_test_support Qt6::Core)
target_compile_definitions(bench_handoff PRIVATE BARE_QT_PATH="$<TARGET_FILE:bench_bare_qt>")
add_dependencies(bench_handoff bench_bare_qt quorvel quorvel_data)
