quorvel_add_test(media_probe_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_ffmpegreport.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_mediasource.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_probe.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_processrunner.cpp
    LIBS quorvel_media
    LABELS media)

# The headless report command, run through the program itself.
quorvel_add_test(media_report_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_reportcommand.cpp
    LIBS quorvel_media
    LABELS media)
add_dependencies(media_report_tests quorvel quorvel_data)
