quorvel_add_test(media_probe_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_ffmpegreport.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_mediasource.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_probe.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_processrunner.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_libavprobe.cpp
    LIBS quorvel_media
    LABELS media)
