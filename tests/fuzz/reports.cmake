# The probe's text parsers.
quorvel_add_fuzzer(fuzz_reports
    ${CMAKE_CURRENT_SOURCE_DIR}/fuzz_reports.cpp
    ${CMAKE_SOURCE_DIR}/src/media/ffmpegreport.cpp
    ${CMAKE_SOURCE_DIR}/src/media/mediasource.cpp)
target_link_libraries(fuzz_reports PRIVATE Qt6::Gui)
