quorvel_add_test(playback_engine_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_player.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_vlcengine.cpp
    LIBS quorvel_core)
