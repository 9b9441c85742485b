# One full paint of the skinned window against one drawImage of a prepared
# picture of the same size, at the start size and at full HD.
add_executable(bench_skin ${CMAKE_CURRENT_LIST_DIR}/skin/bench_skin.cpp)
target_link_libraries(bench_skin PRIVATE quorvel_skin Qt6::Widgets)
target_compile_definitions(bench_skin PRIVATE QUORVEL_SKIN_SOURCE_DATA="${CMAKE_SOURCE_DIR}/data/")
target_include_directories(bench_skin PRIVATE ${CMAKE_CURRENT_LIST_DIR})
