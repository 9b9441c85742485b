# RIFF walking and the AVI audio delay scan.
target_sources(quorvel_media PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/riffparser.h ${CMAKE_CURRENT_LIST_DIR}/riffparser.cpp
    ${CMAKE_CURRENT_LIST_DIR}/avidelay.h ${CMAKE_CURRENT_LIST_DIR}/avidelay.cpp
)
