quorvel_add_test(playlist_model_tests ${CMAKE_CURRENT_LIST_DIR}/test_playlist.cpp LIBS quorvel_core)
