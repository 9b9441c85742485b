quorvel_add_test(playback_logic_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_playorder.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_playbackmonitor.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_speed.cpp
    ${CMAKE_CURRENT_LIST_DIR}/qstringprint.h ${CMAKE_CURRENT_LIST_DIR}/recordingpower.h
    ${CMAKE_CURRENT_LIST_DIR}/test_afterplay.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_transportlogic.cpp
    LIBS quorvel_playback_logic Qt6::DBus
    LABELS logic)
