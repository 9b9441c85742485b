quorvel_add_test(media_riff_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_riffparser.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_avidelay.cpp
    LIBS quorvel_media
    LABELS media)
