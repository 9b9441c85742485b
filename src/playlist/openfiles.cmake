# The open command and its file chooser: no playlist or window needed, the
# add is handed in by the caller.
add_library(quorvel_openfiles STATIC
    ${CMAKE_CURRENT_LIST_DIR}/openfiles.h ${CMAKE_CURRENT_LIST_DIR}/openfiles.cpp
    ${CMAKE_CURRENT_LIST_DIR}/filechooser.h ${CMAKE_CURRENT_LIST_DIR}/filechooser.cpp
)
target_include_directories(quorvel_openfiles PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(quorvel_openfiles PUBLIC quorvel_common Qt6::Widgets)
