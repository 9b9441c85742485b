quorvel_add_test(playback_power_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_logindpower.cpp
    ${CMAKE_CURRENT_LIST_DIR}/qstringprint.h
    LIBS quorvel_playback_logic Qt6::DBus
    LABELS logic)
