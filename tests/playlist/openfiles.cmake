quorvel_add_test(playlist_openfiles_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_openfiles.cpp
    LIBS quorvel_openfiles
    LABELS logic)
