find_package(Qt6 REQUIRED COMPONENTS Test)
quorvel_add_test(fancylist_tests
    ${CMAKE_CURRENT_LIST_DIR}/test_fancylist_model.cpp
    ${CMAKE_CURRENT_LIST_DIR}/test_fancylist_widget.cpp
    LIBS quorvel_fancylist Qt6::Test LABELS playlist)
