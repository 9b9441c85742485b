# The thumbnail list widget and its window-free rules.
add_library(quorvel_fancylist STATIC
    ${CMAKE_CURRENT_LIST_DIR}/fancylistmodel.h ${CMAKE_CURRENT_LIST_DIR}/fancylistmodel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/fancylist.h ${CMAKE_CURRENT_LIST_DIR}/fancylist.cpp
)
target_include_directories(quorvel_fancylist PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(quorvel_fancylist PUBLIC quorvel_common Qt6::Widgets)
