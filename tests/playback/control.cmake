quorvel_add_test(playback_control_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_playsequence.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_monitor.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_transport.cpp
    LIBS quorvel_core)
