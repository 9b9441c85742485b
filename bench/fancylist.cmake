# Paint cost of the thumbnail list with 10 against 10,000 rows, and memory
# per row against one raw thumbnail picture.
add_executable(bench_fancylist ${CMAKE_CURRENT_LIST_DIR}/fancylist/bench_fancylist.cpp)
target_link_libraries(bench_fancylist PRIVATE quorvel_fancylist Qt6::Widgets)
target_include_directories(bench_fancylist PRIVATE ${CMAKE_CURRENT_LIST_DIR})
