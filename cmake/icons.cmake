# SPDX-License-Identifier: MIT
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(CORVANE_ICONS ${CMAKE_BINARY_DIR}/icons)
set(CORVANE_ICON_SIZES 16 24 32 48 64 128 256 512)
set(CORVANE_WINDOW_ICON_SIZES 16 32 48)
set(drawings ${PROJECT_SOURCE_DIR}/packaging/icons)

# corvane_icons(): renders the program's icon as SIZE.png in CORVANE_ICONS. Small sizes have their own drawings, with
# bolder shapes on whole pixels.
function(corvane_icons)
  foreach(size IN LISTS CORVANE_ICON_SIZES)
    set(drawing ${drawings}/${size}.svg)
    if(NOT EXISTS ${drawing})
      set(drawing ${drawings}/org.corvane.Corvane.svg)
    endif()
    set(picture ${CORVANE_ICONS}/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing} VERBATIM
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${drawing})
    list(APPEND pictures ${picture})
  endforeach()
  file(MAKE_DIRECTORY ${CORVANE_ICONS})
  add_custom_target(icons ALL DEPENDS ${pictures})
endfunction()

# corvane_window_icon(TARGET): embeds the icon as raw pixels under :/icons.
function(corvane_window_icon target)
  foreach(size IN LISTS CORVANE_WINDOW_ICON_SIZES)
    set(picture ${CORVANE_ICONS}/${size}.png)
    set(raw ${CORVANE_ICONS}/${size}.raw)
    add_custom_command(OUTPUT ${raw} DEPENDS ${picture} ${drawings}/raw.py VERBATIM
      COMMAND ${Python3_EXECUTABLE} -B ${drawings}/raw.py ${picture} ${raw})
    list(APPEND raws ${raw})
  endforeach()
  qt_add_resources(${target} icons PREFIX /icons BASE ${CORVANE_ICONS} FILES ${raws}
                   OPTIONS --no-compress)
endfunction()
