# SPDX-License-Identifier: GPL-3.0-or-later
# The images that the module's components expect from an application, at the root of its resources.

set(orrin_viewer_icons
  Playback_FastForward.svg
  Playback_FastForward_Active.svg
  Playback_Live.svg
  Playback_Live_Active.svg
  Playback_PlayPause.svg
  Playback_PlayPause_Active_1.svg
  Playback_PlayPause_Active_2.svg
  Playback_Rewind.svg
  Playback_Rewind_Active.svg
  arrow_left.svg
  arrow_right.svg
  details.svg
  ic_exit_to_app_black_24px.svg
  orrinsdk/widgets/images/Cross_Icon.svg
  orrinsdk/widgets/images/ptzf/PTZF_DownArrowButton_Normal.svg
  ptzf.svg
  settings.svg
)

# orrin_add_viewer_icons(<target>): embeds the images into the target under ":/".
set(orrin_viewer_icons_folder "${CMAKE_CURRENT_LIST_DIR}")
function(orrin_add_viewer_icons target)
  list(TRANSFORM orrin_viewer_icons PREPEND "${orrin_viewer_icons_folder}/" OUTPUT_VARIABLE files)
  qt_add_resources(${target} viewer_icons PREFIX "/" BASE "${orrin_viewer_icons_folder}" FILES ${files})
endfunction()
