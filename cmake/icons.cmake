find_program(RSVG_CONVERT rsvg-convert REQUIRED)

set(CORVANE_ICONS ${CMAKE_BINARY_DIR}/icons)
set(CORVANE_ICON_SIZES 16 24 32 48 64 128 256 512)

# corvane_icons(): has the program's icon drawn as SIZE.png in the folder CORVANE_ICONS. Where there are
# few pixels, from a drawing of its own without the details that would blur.
function(corvane_icons)
  foreach(size IN LISTS CORVANE_ICON_SIZES)
    set(drawing ${PROJECT_SOURCE_DIR}/packaging/icons/org.corvane.Corvane.svg)
    if(size LESS 32)
      set(drawing ${PROJECT_SOURCE_DIR}/packaging/icons/small.svg)
    endif()
    set(picture ${CORVANE_ICONS}/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing} VERBATIM
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${drawing})
    list(APPEND pictures ${picture})
  endforeach()
  file(MAKE_DIRECTORY ${CORVANE_ICONS})
  add_custom_target(icons ALL DEPENDS ${pictures})
endfunction()
