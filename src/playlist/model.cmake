target_sources(quorvel_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/thumblist.h
    ${CMAKE_CURRENT_LIST_DIR}/playlist.h ${CMAKE_CURRENT_LIST_DIR}/playlist.cpp
    ${CMAKE_CURRENT_LIST_DIR}/fancylistthumblist.h
)
