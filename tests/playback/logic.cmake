quorvel_add_test(playback_logic_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_playorder.cpp
    LIBS quorvel_playback_logic
    LABELS logic)
