# Playback logic that needs no window: play order and modes, the monitor's
# decisions, speed steps and transport tables, after-play actions, the
# system power requests, and the transport that ties them to the engine
# interface (engine.h and playbackstate.h are header-only and reached
# through the include path).
add_library(quorvel_playback_logic STATIC
    ${CMAKE_CURRENT_LIST_DIR}/rounding.h ${CMAKE_CURRENT_LIST_DIR}/rounding.cpp
    ${CMAKE_CURRENT_LIST_DIR}/playorder.h ${CMAKE_CURRENT_LIST_DIR}/playorder.cpp
    ${CMAKE_CURRENT_LIST_DIR}/playbackmonitor.h ${CMAKE_CURRENT_LIST_DIR}/playbackmonitor.cpp
    ${CMAKE_CURRENT_LIST_DIR}/speed.h ${CMAKE_CURRENT_LIST_DIR}/speed.cpp
    ${CMAKE_CURRENT_LIST_DIR}/afterplay.h ${CMAKE_CURRENT_LIST_DIR}/afterplay.cpp
    ${CMAKE_CURRENT_LIST_DIR}/systempower.h ${CMAKE_CURRENT_LIST_DIR}/systempower.cpp
    ${CMAKE_CURRENT_LIST_DIR}/transportlogic.h ${CMAKE_CURRENT_LIST_DIR}/transportlogic.cpp
)
target_include_directories(quorvel_playback_logic PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(quorvel_playback_logic PUBLIC quorvel_common Qt6::Core Qt6::DBus)
