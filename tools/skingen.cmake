# skingen draws the skin pictures; it is a developer tool built only when
# asked (-DQUORVEL_SKINGEN=ON). `cmake --build . --target skin_images` redraws
# data/images in the source tree; the result is committed.
option(QUORVEL_SKINGEN "Build the skin drawing tool" OFF)
if(QUORVEL_SKINGEN)
    add_executable(skingen
        ${CMAKE_CURRENT_LIST_DIR}/skingen/main.cpp
        ${CMAKE_CURRENT_LIST_DIR}/skingen/skinart.h
        ${CMAKE_CURRENT_LIST_DIR}/skingen/skinart.cpp)
    target_link_libraries(skingen PRIVATE Qt6::Gui)
    add_custom_target(skin_images
        COMMAND skingen ${CMAKE_SOURCE_DIR}/data/images --sheet ${CMAKE_BINARY_DIR}/skin-sheet.png
        DEPENDS skingen
        COMMENT "Drawing the skin into data/images")
endif()
