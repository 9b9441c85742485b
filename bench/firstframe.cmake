# Time to the first video frame on screen against mpv (run.sh installs it).
find_package(X11)
if(X11_FOUND)
    add_executable(bench_firstframe ${CMAKE_CURRENT_LIST_DIR}/firstframe/bench_firstframe.cpp)
    target_link_libraries(bench_firstframe PRIVATE quorvel_test_support Qt6::Widgets X11::X11)
    add_dependencies(bench_firstframe quorvel quorvel_data)
endif()
