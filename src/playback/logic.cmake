# Restarting and powering off the computer through the login manager; needs
# no window and is tested against a stand-in login manager on a private bus.
add_library(quorvel_playback_logic STATIC
    ${CMAKE_CURRENT_LIST_DIR}/systempower.h ${CMAKE_CURRENT_LIST_DIR}/systempower.cpp
)
target_include_directories(quorvel_playback_logic PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(quorvel_playback_logic PUBLIC quorvel_common Qt6::Core Qt6::DBus)
