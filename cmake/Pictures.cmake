# Renders the module's pictures from their SVG sources at build time.
#
# Include once from the top-level CMakeLists.txt. Defines:
#   kstr_pictures        target (part of ALL) that renders into KSTR_PICTURES_DIR and
#                        copies the run-time PNGs to ${CMAKE_BINARY_DIR}/bin/resources/kstrmouse
#   KSTR_PICTURES_DIR    ${CMAKE_BINARY_DIR}/pictures: bitmaps/, icons/, kstrmouse/,
#                        pictures.rc (BITMAP/ICON statements), contact-sheet.png
#   KSTR_PICTURE_FILES   every rendered file, for OBJECT_DEPENDS of the .rc that includes pictures.rc

set(KSTR_PICTURES_DIR ${CMAKE_BINARY_DIR}/pictures)
cmake_path(SET _kstr_pic_root NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/..")
set(_kstr_pic_src ${_kstr_pic_root}/resources/pictures)
set(_kstr_pic_script ${_kstr_pic_root}/scripts/render-pictures.sh)
set(_kstr_pic_manifest ${_kstr_pic_src}/manifest.txt)
set(_kstr_pic_runtime ${CMAKE_BINARY_DIR}/bin/resources/kstrmouse)

# A new or removed line in the manifest changes the lists below: reconfigure then.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_kstr_pic_manifest})

file(STRINGS ${_kstr_pic_manifest} _kstr_pic_lines REGEX "^[^#]")
set(KSTR_PICTURE_FILES ${KSTR_PICTURES_DIR}/pictures.rc)
set(_kstr_pic_sources)
foreach(_line IN LISTS _kstr_pic_lines)
  string(REGEX MATCH "^([^ ]+) +([^ ]+) +[^ ]+ +[^ ]+ *$" _ok "${_line}")
  if(NOT _ok)
    message(FATAL_ERROR "Pictures: malformed manifest line: ${_line}")
  endif()
  list(APPEND KSTR_PICTURE_FILES ${KSTR_PICTURES_DIR}/${CMAKE_MATCH_1})
  list(APPEND _kstr_pic_sources ${_kstr_pic_src}/${CMAKE_MATCH_2})
endforeach()

find_program(KSTR_BASH bash REQUIRED)
add_custom_command(
  OUTPUT ${KSTR_PICTURE_FILES}
  BYPRODUCTS ${KSTR_PICTURES_DIR}/contact-sheet.png
  COMMAND ${KSTR_BASH} ${_kstr_pic_script} ${KSTR_PICTURES_DIR}
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${_kstr_pic_runtime}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${KSTR_PICTURES_DIR}/kstrmouse ${_kstr_pic_runtime}
  DEPENDS ${_kstr_pic_script} ${_kstr_pic_manifest} ${_kstr_pic_sources}
  COMMENT "Rendering pictures into ${KSTR_PICTURES_DIR}"
  VERBATIM)
add_custom_target(kstr_pictures ALL DEPENDS ${KSTR_PICTURE_FILES})
