target_sources(quorvel_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/engine.h
    ${CMAKE_CURRENT_LIST_DIR}/vlcengine.h ${CMAKE_CURRENT_LIST_DIR}/vlcengine.cpp
    ${CMAKE_CURRENT_LIST_DIR}/engineoptions.h ${CMAKE_CURRENT_LIST_DIR}/engineoptions.cpp
    ${CMAKE_CURRENT_LIST_DIR}/playbackstate.h
    ${CMAKE_CURRENT_LIST_DIR}/player.h ${CMAKE_CURRENT_LIST_DIR}/player.cpp
)
