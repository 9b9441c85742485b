target_sources(quorvel_core PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/playsequence.h ${CMAKE_CURRENT_LIST_DIR}/playsequence.cpp
    ${CMAKE_CURRENT_LIST_DIR}/monitor.h ${CMAKE_CURRENT_LIST_DIR}/monitor.cpp
    ${CMAKE_CURRENT_LIST_DIR}/rate.h ${CMAKE_CURRENT_LIST_DIR}/rate.cpp
    ${CMAKE_CURRENT_LIST_DIR}/transport.h ${CMAKE_CURRENT_LIST_DIR}/transport.cpp
)
